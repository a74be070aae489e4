#pragma once

// The messages at the beginning and at the end of a helper's part of the log.
inline constexpr char kStartBanner[] =
    "************************* START Velmora CEF Helper *************************";
inline constexpr char kEndBanner[] =
    "************************* END Velmora CEF Helper. Version: 4.3.0.256 "
    "*************************";
