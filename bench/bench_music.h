// The modes of the benchmark that play music, and of the cabin around it. Each prints one line of
// JSON and returns 0 when what it checked held.
#pragma once

#include "platform/text.h"

namespace korvane {

int benchRecords(const QStringList& arguments);   // records
int benchPlay(const QStringList& arguments);      // play FILE FILE2
int benchLinks(const QStringList& arguments);     // links HOME
int benchListener(const QStringList& arguments);  // listener LISTENER FILE
int benchLights(const QStringList& arguments);    // lights HOME LIGHTS
int benchRip(const QStringList& arguments);       // rip [SECONDS]
int benchKeys(const QStringList& arguments);      // of the prompt keyboard, in a window

}  // namespace korvane
