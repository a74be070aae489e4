#pragma once

// The messages with which a helper begins and ends its part of the log.
inline constexpr char kStartBanner[] =
    "************************* START Velmora CEF Helper *************************";
inline constexpr char kEndBanner[] =
    "************************* END Velmora CEF Helper. Version: 4.3.0.256 "
    "*************************";
