// Builds the list file from the database.
#pragma once

#include <atomic>

#include "library/data/sql.h"
#include "library/index/index_image.h"

namespace korvane {

// The bytes of a list file for the database as the connection sees it, read in one transaction.
// Empty when `cancel` was set meanwhile. Throws DatabaseError.
QByteArray buildIndex(sql::Connection& connection, const std::atomic<bool>& cancel);

// Replaces the file whole; false when the directory cannot be written.
bool writeIndex(const QString& path, const QByteArray& bytes);

}  // namespace korvane
