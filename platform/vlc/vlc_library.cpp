#include "platform/vlc/vlc_library.h"

#include <dlfcn.h>

#include <map>
#include <mutex>

namespace korvane {
namespace {

// No scripts, nothing printed or written over the picture, no connection to a display of its own.
constexpr const char* kArguments[] = {"--no-lua", "--quiet", "--no-xlib", "--no-video-title-show",
                                      "--no-osd"};

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

libvlc_instance_t* VlcLibrary::instance(const QStringList& arguments) const {
  static std::mutex mutex;
  static std::map<QStringList, libvlc_instance_t*> made;
  const std::lock_guard lock(mutex);
  if (const auto found = made.find(arguments); found != made.end()) return found->second;

  std::vector<QByteArray> words(std::begin(kArguments), std::end(kArguments));
  for (const QString& argument : arguments) words.push_back(argument.toLocal8Bit());
  std::vector<const char*> pointers;
  pointers.reserve(words.size());
  for (const QByteArray& word : words) pointers.push_back(word.constData());
  libvlc_instance_t* instance = libvlc_new(static_cast<int>(pointers.size()), pointers.data());
  if (instance) made[arguments] = instance;
  return instance;
}

}  // namespace korvane
