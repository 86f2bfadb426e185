#include <algorithm>

#include "app/predict/PredictOptions.h"
#include "settings/SettingsTable.h"

namespace {

/// The options of a group that the settings' table gives, one a line.
std::string OptionLines(OptionGroup eGroup)
{
    constexpr std::size_t kHelpColumn = 26;
    std::string sText;
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.option.sName == nullptr || row.option.eGroup != eGroup)
            continue;
        std::string sLine = std::string("  ") + row.option.sName + " " + row.option.sValue;
        sLine.resize(std::max(kHelpColumn, sLine.size() + 1), ' ');
        sText += sLine + SettingHelpText(row) + "\n";
    }
    return sText;
}

}  // namespace

std::string PredictHelpGet()
{
    return std::string(R"(hopcast-predict: HF radio prediction on the command line

Usage:
  hopcast-predict [--profile FILE] [--tx POS] [--rc POS] [OPTIONS]
  hopcast-predict --area NORTH,WEST,SOUTH,EAST --hour 0-23 --frequency kHz [--grid N] [OPTIONS]
  hopcast-predict --area NORTH,WEST,SOUTH,EAST --day [--frequencies kHz,...] [--jobs N] [OPTIONS]

The first form predicts the signal-to-noise ratio from a transmitter to a receiver for the 24 hours
of the day; the second the one around the receiver (--rc) over an area, for one hour and frequency;
the third the same for all hours and frequencies.
Without options the settings' defaults hold; no profile is read unless it is named, and the sunspot
number is Airmail's unless --ssn gives it.

Positions (POS):
  LAT,LON                 decimal degrees, north and east positive: 38,-122
  two texts               38°30.00'N,122°15.00'W
  grid square             Maidenhead, 4 or 6 characters: FN42
  airmail                 Airmail's own position
  SYSTEM:KEY              a station of Airmail's lists: ham:KEY, sailmail:KEY

Circuit:
  --profile FILE          read the settings from a profile first
  --tx POS                transmitter
  --rc POS                receiver; the fixed end of an area
  --frequencies kHz,...   up to 15 frequencies, 100 to 45000 kHz each

Engine:
  --model NAME            icepac, voacap or rec533 (default rec533)
  --month 1-12            month (default: the current one)
  --ssn N                 smoothed sunspot number, 0 to 311
)") + OptionLines(OptionGroup::Engine)
           + R"(  --coefficients NAME     CCIR, URSI, or MEAN of both: built-in engine only (its default; else URSI)
  ICEPAC and VOACAP only:
)" + OptionLines(OptionGroup::EngineComplex)
           + R"(  --layers E,F1,F2,Es     layer factors, 0 to 9.99 each (default 1,1,1,0.7)

Area:
  --area N,W,S,E          bounds in degrees; an east bound west of the west bound crosses longitude 180
  --hour 0-23             UT hour
  --frequency kHz         frequency
)" + OptionLines(OptionGroup::Area)
           + R"(  --day                   all 24 hours at --frequencies in place of --hour and --frequency
  --jobs N                with --day: points computed at once, 1 to 64 (default: one a core)

Output:
  --format NAME           table (default), csv or json; areas: csv (default) or json
  --output FILE           write to a file instead of standard output ("-")
  --help, --version

Exit status: 0 predicted, 1 prediction failed or values are missing, 2 wrong usage.
)";
}
