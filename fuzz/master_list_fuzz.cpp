// What a Master Listener sends to a console, up to the rows of frmNetwork and every press there. A
// byte of 3 ends a delivery.
#include "listener/master_listener.h"
#include "listener/screens/network_form.h"
#include "tests/listener/music_parts.h"

namespace {

using namespace korvane;

void require(bool held) {
  if (!held) __builtin_trap();
}

struct Host : FormHost {
  void show(Form&) override {}
  void showModal(Form& form) override { onModal(form); }
  void hide(Form&) override { ++hidden; }
  void fadeOut(Form&, int) override {}
  bool sendKey(Form&, int, const QString&) override { return false; }
  bool pressesTaken() const override { return false; }
  std::function<void(Form&)> onModal;
  int hidden = 0;
};

struct Console : MusicParts {
  Console() {
    setting("LinkSupervision=YES");
    state.gMasterListenerIP = u"10.0.0.1"_s;
    state.gMasterListenerPort = u"4000"_s;
    master.networkAsked = [this](const QList<ListenerEntry>& list) { look(list); };
    master.listHeard = [this](const QList<ListenerEntry>& list, bool) {
      const ListenerEntry music{state.gMusicListenerName, state.gMusicListenerIP, {}, {}};
      const auto other = inPlaceOf(music, list);
      require(!other || list.contains(*other));
    };
  }

  void look(const QList<ListenerEntry>& list) {
    for (const ListenerEntry& entry : list)
      for (const QString& text : {entry.description, entry.ip, entry.port, entry.type})
        require(text.size() <= 200 && std::none_of(text.begin(), text.end(), [](QChar c) {
                  return c.category() == QChar::Other_Control;
                }));
    host.onModal = [&](Form& shown) {
      auto& grid = dynamic_cast<Grid&>(*shown.find(u"Grid"));
      require(grid.maxRows() == list.size());
      const auto press = [&shown](const char* button, int index) {
        shown.fire(*shown.find(QString::fromLatin1(button), index), {Event::Click});
      };
      press("cmdExpand", -1);
      for (int row = 1; row <= std::min(grid.maxRows(), 20); ++row) {
        shown.fire(grid, {.type = Event::Click, .row = row});
        press("cmdAble", row % 2);
      }
      press("cmdDone", -1);
    };
    const int before = host.hidden;
    network.loadit(list);
    require(host.hidden == before + 1);
  }

  Screen screen;
  Palette palette{settings};
  Host host;
  NetworkForm network{{host, palette, messages}, state};
  FakeWinsock connectionML;
  MasterListener master{
      {state, settings, screen, messages, logger, system.pump, system.clock, connectionML}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray stream(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  Console console;
  console.master.connectAgain();
  console.connectionML.stand();
  for (const QByteArray& delivery : stream.split('\3')) {
    console.connectionML.arrive(delivery);
    console.system.clock.advance(60'000);  // until a list that nobody asked for is shown again
  }
  return 0;
}
