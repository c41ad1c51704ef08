// The table of the lamps: which unit of which house is what topic of the broker.
//
// A text file in UTF-8. A section for each lamp, its house and unit in brackets; the keys in any
// order; a line that begins with ';' or '#' says nothing.
//
//   [A1]
//   description = Reading light
//   topic = cabin/reading/set       ; what is published to, needed
//   on = ON                         ; payloads; these are the defaults
//   off = OFF
//   dims = yes                      ; else it knows on and off alone
//   level = {"brightness": %}       ; the payload of a level, '%' stands for the number; "%"
//   full = 254                      ; that number when it is full, 100 by default
//   steps = 10                      ; of DIM and BRIGHT from full to off, 10 by default
//   state = cabin/reading           ; where the lamp tells how it is; absent: nowhere
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

struct TableLamp {
  QChar house = u'A';
  int unit = 0;
  QString description, topic, state;
  QByteArray on = "ON", off = "OFF", level = "%";
  bool dims = false;
  int full = 100, steps = 10;

  QString name() const { return house + QString::number(unit); }  // "A1"
};

inline constexpr qsizetype kLongestTable = 256 << 10;  // bytes
inline constexpr int kMostLamps = 256, kMostUnit = 100;

// Nothing with `error`, which names the line, for a table with anything that is not understood.
std::optional<QList<TableLamp>> readLightTable(const QByteArray& bytes, QString* error);

// The payload that sets a lamp to a level in percent.
QByteArray payloadOf(const TableLamp& lamp, int percent);

// The level in percent that a lamp tells: its own payloads, a number up to `full`, or an object of
// JSON with "state" or "brightness". Nothing for anything else.
std::optional<int> levelTold(const TableLamp& lamp, const QByteArray& payload);

}  // namespace korvane
