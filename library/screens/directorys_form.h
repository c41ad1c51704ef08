// frmDirectorys: the directory chooser and the scanner in one form.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "core/settings.h"
#include "library/screens/song_import.h"

namespace korvane {

// What the chooser is opened for.
struct DirectoryRequest {
  enum Store { Nothing, Movies, Playlist, Photos };

  QString caption = u"MP3 Setup"_s;
  QString mode{};          // "DIR" scans by folders, "MP3" by tags, "SINGLE" takes one file
  Store store = Nothing;   // without a mode: where the chosen directory is kept
  QString pattern{};       // of the files shown; empty for music
  QString path{};          // where it begins; empty for the place of the last time
  bool runAtLoad = false;  // "DIR" on `path` at once, with no press

  // With mode "SINGLE": entries of customSelect, one of which may be taken in a file's place, and
  // which files are shown beside those of the pattern, by their paths.
  QStringList customEntries{};
  std::function<bool(const QString&)> alsoShown{};
};

class DirectorysForm : private ImportWatch {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    AppState& state;
    Settings& settings;
    FileSystem& files;
    Screen& screen;
    Messages& messages;
    SongImport& import;
    ImportNews& news;
  };
  explicit DirectorysForm(Uses uses);

  // The chosen directory, with a separator at its end, the chosen file with its path or the word of
  // the chosen entry; nothing when cancelled or after a scan. Yields.
  std::optional<QString> open(const DirectoryRequest& request);

  void dofiles(const QString& path);  // Yields.

  Form& form() { return form_; }

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
  void cmdok_Click();
  void cmdCancel_Click();
  void txtListenerDrive_Click();

  void showFolder(const QString& path);
  void showCustomButton();
  QStringList filesOf(const QString& path) const;
  QString beginning() const;
  void scanTagged();
  template <class Scan>
  void run(Scan scan);                              // Yields.
  void guarded(const std::function<void()>& work);  // a failure is said
  void lookScanning(bool scanning);
  void finished(const ImportResult& result);
  void takeFile();
  void storeDirectory();
  void importProgress(const ImportProgress& progress) override;

  Uses uses_;
  Form form_;
  Panel panel_;
  DirectoryRequest request_;
  QString path_;  // the folder shown
  std::optional<QString> chosen_;
  bool scanning_ = false;
  bool watched_ = false;  // the scan began on the screen
};

}  // namespace korvane
