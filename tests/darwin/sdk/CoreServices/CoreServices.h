// Declares the three functions that the project calls, and the types and constants that they need,
// for cross-compilation. Written from the documentation, not copied from the SDK's header.
#pragma once

#include <cstdint>

extern "C" {
typedef std::uint8_t UInt8;
typedef std::uint32_t UInt32;
typedef std::int16_t SInt16;
typedef std::int32_t SInt32;
typedef unsigned char Boolean;
typedef UInt32 OSType;
typedef SInt16 OSErr;
typedef SInt32 OSStatus;
typedef SInt16 FSVolumeRefNum;

struct FSRef {
  UInt8 hidden[80];
};

enum { noErr = 0 };
enum : Boolean { kCreateFolder = 1 };
enum : FSVolumeRefNum { kLocalDomain = -32765, kUserDomain = -32763 };
enum : OSType {
  kApplicationsFolderType = 0x61707073,
  kApplicationSupportFolderType = 0x61737570,
  kDocumentsFolderType = 0x646F6373,
  kSharedUserDataFolderType = 0x73646174,
  kPreferencesFolderType = 0x70726566,
  kUtilitiesFolderType = 0x757469C4,
};
enum : OSType {
  gestaltSystemVersionMajor = 0x73797331,
  gestaltSystemVersionMinor = 0x73797332,
  gestaltSystemVersionBugFix = 0x73797333,
};

OSErr FSFindFolder(FSVolumeRefNum volume, OSType type, Boolean create, FSRef* found);
OSStatus FSRefMakePath(const FSRef* reference, UInt8* path, UInt32 size);
OSErr Gestalt(OSType selector, SInt32* response);
}
