#include "platform/sound/vlc_library.h"

#include <dlfcn.h>

namespace korvane {
namespace {

struct Opened {
  VlcLibrary functions;
  QString error;
};

Opened openLibrary() {
  Opened opened;
  void* library = dlopen("libvlc.so.5", RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    opened.error =
        u"libVLC cannot be opened (%1). Install the packages libvlc5 and vlc-plugin-base."_s.arg(
            QString::fromLocal8Bit(dlerror()));
    return opened;
  }
  const auto find = [&](auto& function, const char* name) {
    function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
    if (!function) opened.error = u"libVLC has no %1."_s.arg(QString::fromLatin1(name));
  };
#define KORVANE_VLC_FIND(name) find(opened.functions.name, #name);
  KORVANE_VLC_FUNCTIONS(KORVANE_VLC_FIND)
#undef KORVANE_VLC_FIND
  return opened;
}

}  // namespace

const VlcLibrary* VlcLibrary::open(QString* error) {
  static const Opened opened = openLibrary();
  if (opened.error.isEmpty()) return &opened.functions;
  if (error) *error = opened.error;
  return nullptr;
}

}  // namespace korvane
