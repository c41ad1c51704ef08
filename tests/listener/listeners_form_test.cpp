#include "listener/screens/listeners_form.h"

#include "tests/fakes/fake_form_host.h"
#include "tests/listener/music_world.h"

namespace korvane {
namespace {

struct ListenersFormTest : MusicWorld {
  QStringList lamps(Form& shown) {
    const QHash<Colour, QString> words{{65280, u"green"_s}, {255, u"red"_s}};
    QStringList seen;
    for (int i = 0; i < 3; ++i) {
      const Control& lamp = *shown.find(u"Shape", i);
      const QString lit =
          lamp.caption() == u"●"_s ? words.value(lamp.colours().fore.value_or(0)) : u"dark"_s;
      seen << u"%1: %2 %3"_s.arg(textOf(shown, u"lblIP"_s, i), lit,
                                 textOf(shown, u"lblState"_s, i));
    }
    return seen;
  }

  Palette palette{settings};
  FakeFormHost host;
  FakeNetwork& network = system.network;
  FakeWinsock connectionML;
  ListenersForm listeners{{host, palette, messages}, {state, network, connectionML}};
};

// One address after the other, and again after a pause; nothing once the form is left.
TEST_F(ListenersFormTest, PingsTheThreeInTurn) {
  state.gMovieListenerIP = u"10.0.0.2"_s;
  state.gMasterListenerIP = u"10.0.0.1"_s;
  network.status[u"10.0.0.2"_s] = Network::TimedOut;
  host.onModal(u"frmListeners"_s, [&](Form& window) {
    EXPECT_EQ(textOf(window, u"lblthisIP"_s), u"This IP = 10.0.0.7"_s);
    EXPECT_EQ(lamps(window), QStringList({u"Movie 10.0.0.2: dark "_s, u"Music : dark "_s,
                                          u"Master 10.0.0.1: dark "_s}));
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(network.asked.size(), i + 1);
      EXPECT_FALSE(window.find(u"Timer1")->enabled());
      EXPECT_TRUE(network.answer());
    }
    EXPECT_EQ(network.asked, QStringList({u"10.0.0.2 within 500 ms"_s, u" within 500 ms"_s,
                                          u"10.0.0.1 within 500 ms"_s}));
    EXPECT_EQ(lamps(window),
              QStringList({u"Movie 10.0.0.2: red no answer"_s, u"Music : red no address"_s,
                           u"Master 10.0.0.1: green answers"_s}));
    EXPECT_FALSE(network.answer());
    network.status[u"10.0.0.1"_s] = Network::Forbidden;
    state.gMusicListenerIP = u"10.0.0.3"_s;  // from the Master Listener, meanwhile
    window.fire(*window.find(u"Timer1"), {Event::Tick});
    while (network.answer()) continue;
    EXPECT_EQ(lamps(window)[1], u"Music 10.0.0.3: green answers"_s);
    EXPECT_TRUE(lamps(window)[2].startsWith(u"Master 10.0.0.1: red this system forbids pings"_s));
    window.fire(*window.find(u"Timer1"), {Event::Tick});
    EXPECT_TRUE(window.fireKey({.type = Event::KeyDown, .key = 27}));  // Escape is Done
  });
  listeners.open();
  EXPECT_FALSE(network.answer());
  EXPECT_FALSE(listeners.form().find(u"Timer1")->enabled());
  EXPECT_TRUE(host.allDone());
}

}  // namespace
}  // namespace korvane
