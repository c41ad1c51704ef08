// vlc_lines LIST: prints the paths that libVLC itself finds in a playlist, a line each.
#include <vlc/vlc.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

namespace {

// The path of a file:// address (RFC 3986, percent encoding).
std::string pathOf(const char* address) {
  constexpr char kFile[] = "file://";
  std::string path;
  const char* at =
      address + (std::strncmp(address, kFile, sizeof(kFile) - 1) ? 0 : sizeof(kFile) - 1);
  for (; *at; ++at) {
    unsigned byte = 0;
    if (*at == '%' && std::sscanf(at + 1, "%2x", &byte) == 1) {
      path += static_cast<char>(byte);
      at += 2;
    } else {
      path += *at;
    }
  }
  return path;
}

}  // namespace

int main(int count, char** values) {
  if (count != 2) return 2;
  libvlc_instance_t* vlc = libvlc_new(0, nullptr);
  libvlc_media_t* list = vlc ? libvlc_media_new_path(vlc, values[1]) : nullptr;
  if (!list || libvlc_media_parse_with_options(list, libvlc_media_parse_local, 10'000) != 0)
    return 1;
  while (libvlc_media_get_parsed_status(list) == 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  libvlc_media_list_t* items = libvlc_media_subitems(list);
  libvlc_media_list_lock(items);
  const int found = libvlc_media_list_count(items);
  for (int i = 0; i < found; ++i) {
    libvlc_media_t* item = libvlc_media_list_item_at_index(items, i);
    char* address = libvlc_media_get_mrl(item);
    std::puts(pathOf(address).c_str());
    libvlc_free(address);
    libvlc_media_release(item);
  }
  libvlc_media_list_unlock(items);
  libvlc_media_list_release(items);
  libvlc_media_release(list);
  libvlc_release(vlc);
  return found > 0 ? 0 : 1;
}
