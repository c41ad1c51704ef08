// frmDirectorys: the chooser of directories and files. It gives a path and knows no client. Work
// that a client does on the chosen directory while the form stays up, a scan, is a DirectoryWork.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "platform/file_system.h"

namespace korvane {

class DirectoryWork {
 public:
  virtual ~DirectoryWork() = default;
  // Begun by OK. `directory` has no separator at its end, `typed` is the text of the field that the
  // request asks for. May call Chooser::showStatus. The text of a std::exception is shown. Yields.
  virtual void run(const QString& directory, const QString& typed) = 0;
  virtual void stop() = 0;  // asked for while run() yields: it ends soon
};

struct ChooserRequest {
  enum Kind { Directory, File, Save };

  QString title{};
  Kind kind = Directory;
  QString pattern = u"*"_s;  // of the files shown: "*.mp3;*.wma"
  QStringList places{};      // where it begins: the first that is a directory, else the user's home

  QString name{};  // of Save: what the file is called at first

  // What may be taken in a file's place, each a word in its first 14 characters and its meaning
  // behind; the first stands for none. And which files are shown beside those of the pattern.
  QStringList entries{};
  std::function<bool(const QString& path)> alsoShown{};

  // Keeps what was chosen. An error in words is said and leaves the form up.
  std::function<QString(const QString& chosen)> keep{};

  // Done with the directory in place of giving it; not owned. `asks` is the caption of a text that
  // the work wants as well, empty for none.
  DirectoryWork* work = nullptr;
  QString asks{};
};

class Chooser : public Dialog {
 public:
  Chooser(const DialogUses& dialogs, const FileSystem& files);  // `files` must outlive it

  // The chosen directory with a separator at its end, the chosen file with its path, the path of a
  // file to be saved, which may exist, or the word of the chosen entry. Nothing when cancelled,
  // with work, or while the form is up already. Yields.
  std::optional<QString> open(const ChooserRequest& request);

  // How far the work is. Stops it where the form has gone meanwhile; nothing without work.
  void showStatus(const QString& text, const QString& progress);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Label* lblPath = bind("lblPath");
    Label* lblfiles = bind("lblfiles");
    Label* lblListener = bind("lblListener");
    Label* txtStatus = bind("txtStatus");
    Label* lblRate = bind("lblRate");
    Grid* Drive1 = bind("Drive1");
    Grid* Dir1 = bind("Dir1");
    Grid* File1 = bind("File1");
    Grid* customSelect = bind("customSelect");
    Frame* frameCustomButton = bind("frameCustomButton");
    TextBox* txtListenerDrive = bind("txtListenerDrive");
    Button* cmdok = bind("cmdok");
    Button* cmdCancel = bind("cmdCancel");
  };

  void Form_Load();
  void Drive1_Change(int row);
  void Dir1_Change(int row);
  void File1_Click();
  void cmdok_Click();
  void cmdCancel_Click();

  void showFolder(const QString& path);
  void showEntries();
  QStringList filesOf(const QString& path) const;
  QString beginning() const;
  void doWork();
  void lookWorking(bool working);
  void takeFile();
  void takeName();
  void take(const QString& chosen);

  const FileSystem& files_;
  Panel panel_;
  ChooserRequest request_;
  QString path_;  // the folder shown
  std::optional<QString> chosen_;
  bool working_ = false;
};

}  // namespace korvane
