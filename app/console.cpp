#include "app/console.h"

namespace korvane {

Console::Console(System& system, const Desk::MakeHost& makeHost, QString home,
                 std::function<void()> end)
    : desk(system, makeHost, std::move(home), std::move(end)) {}

Console::~Console() = default;

bool Console::SubMain() {
  return desk.startup.SubMain();
}

}  // namespace korvane
