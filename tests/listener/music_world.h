// A music connection with its doors in hand, for the tests of both roles.
#pragma once

#include <gtest/gtest.h>

#include "tests/fakes/print.h"
#include "tests/listener/music_parts.h"

namespace korvane {

struct MusicWorld : testing::Test, MusicParts {};

}  // namespace korvane
