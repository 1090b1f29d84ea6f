#pragma once

namespace sched {

// Registry keys and values under the current user that the installation leaves for the program.
inline constexpr const char* kInstallKey = "Software\\QTL\\Sorvane-e\\PC";
inline constexpr const char* kInstallDirValue = "InstallDir";
inline constexpr const char* kSchedulerKey = "Software\\QTL\\Sorvane-e\\PC\\scl";
inline constexpr const char* kHolidayIniValue = "HolidayIni";
inline constexpr const char* kPimLinkKey = "Software\\QTL\\Sorvane-e\\PimLink";
inline constexpr const char* kPimLinkInstallValue = "Install";

}  // namespace sched
