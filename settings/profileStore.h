#pragma once

#include <string>
#include <string_view>

namespace quernstoke {

// Reads settings from disk. Mode "PROFILE": the current profile; "GLOBAL": the settings of the
// installation, making them and a first profile if there are none yet; empty: both. Returns false
// when the profile's file does not exist, or when a record in it can't be taken.
bool basLoadProfile(std::string_view mode);

// Writes settings to disk. Mode "PROFILE", "GLOBAL" or empty as above; "NEWPROFILE" gives the
// settings their defaults, enters ProfileName in ProfileList and becomes "PROFILE".
void basSaveProfile(std::string& mode);
void basSaveProfile(std::string_view mode);

// Gives the settings of the installation ("GLOBAL") or of a profile ("PROFILE") their defaults.
// The restart points and the elapsed time of a profile stay as they are.
void basDefaultProfile(std::string_view mode, std::string_view profileName);

}  // namespace quernstoke
