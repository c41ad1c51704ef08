// The lamps that the settings name, how bright each is, and the link to what switches them.
//
// A lamp listener need not answer anything: then a level is what this console has sent. With
// X10State it is asked for the levels and tells every change, whoever made it (docs/protocol.md).
#pragma once

#include "core/app_state.h"
#include "listener/record_link.h"

namespace korvane {

// What a record asks of a lamp; the number is that of its button, a member of cmdX10.
enum class LampCommand { On, Off, Dim, Bright };

// Of the console's house, A. `unit` is what a record names it by.
struct Lamp {
  int unit = 0;
  QString description;
  bool dims = false;
};

// "A5D" and "A5DIM", the keys of a unit in section X10.
QString lampNameKey(int unit);
QString lampDimKey(int unit);
// Whether the text of such a key means anything: "NO" is a unit that is unused or cannot dim.
bool lampKeySet(const QString& text);

class Lamps : private RecordLink::Owner {
 public:
  static constexpr int kUnits = 16;       // of a house, as rows show them
  static constexpr int kMostUnits = 100;  // as tiles show them

  struct Uses {  // all of it outlives this
    Winsock& x10Control;
    Pump& pump;
    const Settings& settings;
    const Log& log;
    const AppState& state;  // gX10IP, gX10Port
  };
  explicit Lamps(Uses uses);

  // Reads the lamps from the settings. As tiles each is named by its own unit; as rows by the
  // number of its row, so that an unused unit moves those behind it up.
  void read(bool tiles);
  const std::vector<Lamp>& all() const { return lamps_; }

  // Connects unless the link stands; one to another address than the chosen one is closed first.
  // Waits 300 ms at most, or until it stands. Nothing without an address. Yields.
  void connect();
  void close();  // without a word; nothing is known of the levels any more
  bool connected() const { return link_.state() == Winsock::Connected; }

  // Sends it straight: without a connection it is dropped without a word. Yields.
  void send(LampCommand command, int unit);
  // The same for a level in percent, which a listener that answers is sent as it is; any other
  // is told ON or OFF.
  void set(int unit, int percent);

  bool answers() const;                      // X10State
  std::optional<int> level(int unit) const;  // percent; nothing while it is not known
  bool outOfReach() const { return away_; }  // the listener has lost what it switches through
  std::function<void()> changed = [] {};     // a level, or whether the link stands

 private:
  void linkStands() override;
  void linkDelivers(const QByteArray& delivery) override;
  void linkCloses() override { forget(); }
  void linkFails(const QString&) override { forget(); }

  void take(const ListenerRecord& record);
  void assume(int unit, int percent);
  void forget();

  const Uses uses_;
  RecordLink link_;
  QString madeTo_;  // the address of the link, "host:port"
  std::vector<Lamp> lamps_;
  QHash<int, int> levels_;
  bool away_ = false;
  QByteArray unfinished_;
};

}  // namespace korvane
