// CUE sheets (the format of CDRWIN's user guide): what must hold before libcdio may read one, which
// trusts the numbers in it.
#pragma once

#include <QByteArray>

#include "platform/text.h"

namespace korvane {

// Why a sheet is not read, for a message; empty for a good one: tracks numbered 1, 2, 3... up to
// 99, with at most 99 places each, which stand behind their track, in lines of up to 1000 bytes.
QString cueTrouble(const QByteArray& sheet);

}  // namespace korvane
