#pragma once

// Includes all free functions of the library.

#include "logging/file_utils.h"
#include "logging/folder_utils.h"
#include "logging/os_utils.h"
#include "logging/path_utils.h"
#include "logging/text_utils.h"
#include "logging/time_utils.h"
