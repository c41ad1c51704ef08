// The list file of one database: found valid, made anew, kept valid over writes that change no
// list.
#pragma once

#include <atomic>
#include <functional>

#include "library/data/sql.h"
#include "library/index/index_image.h"
#include "platform/pump.h"

namespace korvane {

class LibraryIndex {
 public:
  explicit LibraryIndex(const QString& databasePath);  // nothing is opened yet
  ~LibraryIndex();  // a build under way ends by itself and installs nothing

  // The connections below are to that database.
  //
  // The image that stands for the database as it is now; null when there is none.
  std::shared_ptr<const IndexImage> valid(sql::Connection& connection);

  // Builds it now. Null when the database is being changed by others. Throws DatabaseError.
  std::shared_ptr<const IndexImage> rebuild();

  // Builds one of what the connection sees inside its transaction; it stands for no file. Throws
  // DatabaseError.
  std::shared_ptr<const IndexImage> passing(sql::Connection& connection);

  // Builds it in the background unless it is valid or being built. `done` comes from the event
  // loop, also after a build that failed; not from a build that was under way already.
  void refresh(sql::Connection& connection, Pump& pump, std::function<void()> done);

  // A writer waits: a build under way gives up the database (and begins again by itself).
  void giveWay() { work_->cancel = true; }

  // The write that has just been committed changed no list: an image of `before` stands for the
  // database after it as well.
  void restamp(const std::optional<DatabaseStamp>& before, sql::Connection& connection);

 private:
  struct Work {
    std::atomic<bool> cancel = false;
    bool running = false;
    QByteArray bytes;
    bool written = false;
  };
  static void build(Work& work, const QString& databasePath, const QString& path);
  void install(Work& work);
  void startBuild(Pump& pump, std::function<void()> done);

  const QString databasePath_, path_;
  std::shared_ptr<const IndexImage> image_;
  std::shared_ptr<Work> work_;
};

}  // namespace korvane
