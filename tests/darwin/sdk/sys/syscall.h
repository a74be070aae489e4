// A declaration for the cross-compilation, not the SDK's header: the number is the kernel's.
#pragma once

#define SYS_thread_selfid 372
