/// @file AirMailFixture.h
/// A drive C for one test, with the Airmail folders at their defaults.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "airmail/AirMailLib.h"
#include "support/DriveC.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"

class AirMailFixture : public testing::Test {
protected:
    AirMailFixture() { AirMailFoldersReset(); }
    ~AirMailFixture() override { AirMailFoldersReset(); }

    /// Writes a file on drive C.
    std::string DriveWrite(const std::string& sName, const std::string& sBytes) const
    {
        return m_drive.Write(sName, sBytes);
    }
    /// Writes a file in the default Airmail folder.
    std::string AirMailWrite(const std::string& sName, const std::string& sBytes) const
    {
        return DriveWrite("Program Files/AirMail/" + sName, sBytes);
    }

    /// Host path of a name in the default Airmail folder.
    std::string AirMailPath(const std::string& sName) const
    {
        return m_drive.Path("Program Files/AirMail/" + sName);
    }

    DriveC m_drive;
    TempFolder m_folder;
};

/// The hint that ends every message while the data folder is the default.
inline const std::string kHintDefault =
    "\r\rPlease check that the AirMail Data folder \"C:\\Program Files\\AirMail\" is correct.";

/// The only box shown; a failure, and an empty text, if there were none or several.
inline MsgShown OneShown(const MsgRecorder& msg)
{
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    return msg.m_aShown.size() == 1 ? msg.m_aShown[0] : MsgShown{MsgIcon::Info, ""};
}
