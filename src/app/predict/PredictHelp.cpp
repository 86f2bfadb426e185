#include <algorithm>

#include "app/predict/PredictOptions.h"
#include "settings/SettingsTable.h"

namespace {

/// A group's options from the table of settings, one per line.
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

constexpr const char* kColumns = R"(
Columns of csv, and keys of json with null where there is no value:
  hour                    number of the hour, 1 to 24
  utc                     hour of UTC, 0 to 23
  muf_khz                 highest usable frequency of the hour, kHz
  luf_khz                 lowest usable frequency of the hour, for the power of the antenna choice, kHz
  khz                     frequency, kHz; for a station in a list: its frequencies, separated by blanks
  mode                    hops and layer, a text of the engine
  takeoff_deg             takeoff angle, degrees
  delay_ms                delay of the signal, ms; csv: -1 if the engine does not give it
  height_km               virtual height of the reflection, km; csv: -1 if not given
  signal_dbw              signal at the receiver, dBW
  noise_dbw               noise at the receiver, dBW in 1 Hz
  snr_db                  signal-to-noise ratio, dB in 1 Hz; csv: -99, -999 or -999.9 for none
  engine                  text: the engine that computed it
  month                   month, 1 to 12
  ssn                     smoothed sunspot number
  ssn_source              text: given, Airmail, mean cycle, NOAA forecast, SILSO forecast or WWV
  power_w                 power of the transmitter, W
  coefficients            text: the maps of the ionosphere
  rel                     fraction of the days with 40 dB, 0 to 1, for the power of the antenna choice
  snr_lower_db            dB from the median SNR down to the value exceeded on nine days in ten
  snr_upper_db            dB from the median SNR up to the value exceeded on one day in ten
  margin_db               snr_db less the need, dB; negative: too weak
Columns of --compare, with utc and khz:
  snr_db_A                dB in 1 Hz, as snr_db, by the engine of --model
  snr_db_B                dB in 1 Hz by the one of --compare
  difference_db           A less B, dB; empty if one of them has none
Columns of areas and stations:
  lat                     latitude, degrees, north positive
  lon                     longitude, degrees, east positive
  system                  text: the list of the station, SYSTEM of a position; places: My places
  key                     text: the name of the station in its list
  description             text of the list
  range_nmi               length of the path, nautical miles (json of paths, too)
  bearing_deg             direction from the receiver to the station, degrees from north
Further keys of json:
  model                   text: engine
  year                    year of the run
  azimuth_tx_rc           direction from the transmitter to the receiver, degrees from north
  azimuth_rc_tx           direction from the receiver to the transmitter, degrees from north
)";

}  // namespace

std::string PredictHelpGet()
{
    return std::string(R"(hopcast-predict: HF radio prediction on the command line

Usage:
  hopcast-predict [--profile FILE] [--tx POS] [--rc POS] [OPTIONS]
  hopcast-predict --area NORTH,WEST,SOUTH,EAST --hour 0-23 --frequency kHz [--grid N] [OPTIONS]
  hopcast-predict --area NORTH,WEST,SOUTH,EAST --day [--frequencies kHz,...] [--jobs N] [OPTIONS]
  hopcast-predict --reach LIST,... [--need dB|NAME] [--from 0-23] [--hours N] [--all] [OPTIONS]
  hopcast-predict --list-stations [--profile FILE]
  hopcast-predict [--model NAME] --compare NAME [--tx POS] [--rc POS] [--need dB|NAME] [OPTIONS]

The first form predicts the signal-to-noise ratio from a transmitter to a receiver for the 24 hours
of the day; the second predicts it around the receiver (--rc) over an area, for one hour and
frequency; the third the same for all hours and frequencies. The fourth shows which stations can be
heard at the receiver, when and on which frequency; the fifth lists the stations. The sixth predicts
a path with two engines.
Without --profile no profile is read: settings without an option have their defaults, and the
sunspot number is Airmail's unless --ssn gives it. The forecast and My places are files beside the
profile: beside the given one, or else beside the one that the window program uses by default. Only
the short path is predicted.

Positions (POS):
  LAT,LON                 decimal degrees, north and east positive: 38,-122
  two texts               38°30.00'N,122°15.00'W
  grid square             Maidenhead, 4 or 6 characters: FN42
  airmail                 Airmail's own position
  SYSTEM:KEY              a station of Airmail's lists: ham:KEY, sailmail:KEY

Circuit:
  --profile FILE          use the settings of a profile, which must exist; other options override
                          them, in any order
  --tx POS                transmitter
  --rc POS                receiver; the fixed end of an area
  --frequencies kHz,...   up to 15 frequencies, 100 to 45000 kHz each
  --need dB|NAME          what the contact needs: dB in 1 Hz, -50 to 150, or a name from the settings'
                          list ("E-mail, normal"); the table marks the cells that meet it with *,
                          csv and json get margin_db

Engine:
  --model NAME            icepac, voacap or rec533 (default rec533)
  --compare NAME          a second engine for the same path at the same power: csv of both and the
                          difference; standard error shows how far they agree in the cells that are
                          open for the need
  --month 1-12            month (default: the current one)
  --ssn N                 smoothed sunspot number, 0 to 311; or airmail: Airmail's (the default
                          without a profile); or forecast: the one kept beside the profile if it
                          covers the month, else the mean of past cycles
  --ssn-file FILE         --ssn forecast from the text in FILE: NOAA's predicted solar cycle (JSON),
                          SILSO's KFprediCM or a WWV bulletin
)") + OptionLines(OptionGroup::Engine)
           + R"(                          --antenna with ICEPAC and VOACAP:
                          0 ideal with gain 100 W; 1 station with gain 100 W, boat with whip; 2 whips 5 kW
                          --antenna with REC533, and in areas:
                          0 station with gain 100 W, boat with whip; 1 whips 5 kW; 2 plain antennas 1 kW
  --coefficients NAME     CCIR, URSI, or MEAN of both: built-in engine only (its default; else URSI)
  ICEPAC and VOACAP only:
)" + OptionLines(OptionGroup::EngineComplex)
           + R"(  --layers E,F1,F2,Es     layer factors, 0 to 9.99 each (default 1,1,1,0.7)

Area:
  --area N,W,S,E          bounds in degrees; an east bound west of the west bound crosses longitude 180
  --hour 0-23             UT hour
  --frequency kHz         frequency
)" + OptionLines(OptionGroup::Area)
           + R"(  --day                   all 24 hours at --frequencies instead of --hour and --frequency
  --jobs N                with --day: points computed at once, 1 to 64 (default: one per core)

Stations, with --rc as the place where you are:
  --reach LIST,...        ham, sailmail, other: Airmail's lists; places: My places.
                          Without --need the profile's need is used, else "E-mail, normal"; without
                          --frequencies a station's own ones if its list has any
  --from 0-23             first hour, UTC (default: the current one)
  --hours N               hours from there on, 1 to 24 (default 24)
  --all                   every frequency, not only an hour's best
  --list-stations         the stations of all lists

Output:
  --format NAME           table (default), csv or json; areas: csv (default) or json;
                          stations: csv
  --output FILE           write to a file instead of standard output ("-")
  --help, --version
)" + kColumns
           + R"(
Exit status: 0 predicted, 1 prediction failed, values are missing or no station can be used, 2 wrong
usage.
)";
}
