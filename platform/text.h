// The house's strings: QString in memory, and its literals for every file.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace korvane {
using namespace Qt::StringLiterals;
}
