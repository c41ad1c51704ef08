#include "ftp/ftp_form.h"

#include <QLocale>

#include "ftp/folder_transfer.h"
#include "ftp/ftp_form_rows.h"
#include "ftp/listing.h"

namespace korvane {
namespace {

constexpr int kListRow = 38, kListFont = 12;  // in the units of GridHeight and GridFontSize

// What is remembered of the last connection: never the password.
QString remembered(const Settings& settings, const QString& key) {
  return settings.GetSetting(u"Korvane"_s, u"Settings"_s, key);
}
void remember(Settings& settings, const QString& key, const QString& value) {
  settings.SaveSetting(u"Korvane"_s, u"Settings"_s, key, value);
}

// "###,##0.00"
QString secondsText(qint64 milliseconds) {
  return QLocale(QLocale::English).toString(static_cast<double>(milliseconds) / 1000, 'f', 2);
}

}  // namespace

FtpForm::FtpForm(Uses uses)
    : Dialog(uses.dialog, u"frmFTP"_s, ftpInventory()),
      uses_(std::move(uses)),
      panel_(form_),
      mFTP_({uses_.pump, uses_.clock, uses_.makeClient, [this] { return safe(); }}) {
  mFTP_.FileTransferProgress = [this](qint64 bytes, qint64 size) {
    mFTP_FileTransferProgress(bytes, size);
  };
  panel_.txtPassword->passwordChar = u"*"_s;
  panel_.lv->columns = {{u"Name"_s, 36, false, Grid::CellKind::Picture},
                        {u"Size"_s, 17},
                        {u"Last Accessed"_s, 19},
                        {u"Attributes"_s, 28}};
  form_.on(u"lv", Event::DblClick,
           [this](Control&, const Event& event) { lv_DblClick(event.row); });
  onClick(u"txtServer", [this](int) { textBox_Click(*panel_.txtServer, u"Server"_s, false); });
  onClick(u"txtUser", [this](int) { textBox_Click(*panel_.txtUser, u"User"_s, false); });
  onClick(u"txtPassword", [this](int) { textBox_Click(*panel_.txtPassword, u"Password"_s, true); });
  connectButtons();
}

void FtpForm::connectButtons() {
  const struct {
    const char* name;
    void (FtpForm::*handler)();
  } kButtons[] = {
      {"cmdConnect", &FtpForm::cmdConnect_Click},
      {"cmdDisconnect", &FtpForm::cmdDisconnect_Click},
      {"cmdDownload", &FtpForm::cmdDownload_Click},
      {"cmdUpload", &FtpForm::cmdUpload_Click},
      {"cmdUploadDir", &FtpForm::cmdUploadDir_Click},
      {"cmdDelete", &FtpForm::cmdDelete_Click},
      {"cmdRename", &FtpForm::cmdRename_Click},
      {"cmdCreateDir", &FtpForm::cmdCreateDir_Click},
      {"cmdRefresh", &FtpForm::cmdRefresh_Click},
      {"cmdCancel", &FtpForm::cmdCancel_Click},
  };
  for (const auto& [name, handler] : kButtons)
    onClick(QString::fromLatin1(name), [this, call = handler](int) { (this->*call)(); });
  onClick(u"optActive", [this](int) {
    mFTP_.SetModeActive();
    panel_.optActive->marked = true;
    panel_.optPassive->marked = false;
  });
  onClick(u"optPassive", [this](int) {
    mFTP_.SetModePassive();
    panel_.optActive->marked = false;
    panel_.optPassive->marked = true;
  });
  onClick(u"optBin", [this](int) {
    mFTP_.SetTransferBinary();
    panel_.optBin->marked = true;
    panel_.optAscii->marked = false;
  });
  onClick(u"optAscii", [this](int) {
    mFTP_.SetTransferASCII();
    panel_.optBin->marked = false;
    panel_.optAscii->marked = true;
  });
}

void FtpForm::open() {
  if (run([this] { Form_Load(); })) Form_Unload();
}

void FtpForm::close() {
  mFTP_.CloseConnection();
  if (form_.shown()) leave();
}

void FtpForm::Form_Load() {
  panel_.txtServer->text = remembered(uses_.settings, u"Server"_s);
  panel_.txtUser->text = remembered(uses_.settings, u"User"_s);
  panel_.lv->rowHeight = kListRow;
  panel_.lv->fontSize = kListFont;
  panel_.cmdUploadDir->visible = safe();
  panel_.pb->visible = false;
  panel_.lblStatus->caption = QString();
  panel_.lblDir->caption = QString();
  mFTP_.SetModeActive();
  mFTP_.SetTransferBinary();
  panel_.optActive->marked = panel_.optBin->marked = true;
  panel_.optPassive->marked = panel_.optAscii->marked = false;
  rows_.reset();
  panel_.lv->clear();
  caption(u"Not Connected."_s);
}

// A transfer that is still under way ends with the connection.
void FtpForm::Form_Unload() {
  mFTP_.CloseConnection();
  panel_.txtPassword->text = QString();
}

void FtpForm::caption(const QString& text) {
  form_.caption = text;
  panel_.lblCaption->caption = text;
}

void FtpForm::textBox_Click(TextBox& box, const QString& prompt, bool password) {
  if (working_) return;
  box.selStart = 0;
  const QString typed = dialog_.messages.ask(prompt, password);
  if (!typed.isEmpty()) box.text = typed;
}

void FtpForm::sayFailure() {
  dialog_.messages.say(mFTP_.GetLastErrorMessage());
}

void FtpForm::work(const std::function<void()>& what) {
  if (working_) return;
  struct Working {
    explicit Working(bool& flag) : working(flag) { working = true; }
    ~Working() { working = false; }
    bool& working;
  } const mark(working_);
  what();
}

void FtpForm::cmdConnect_Click() {
  work([this] {
    const QString server = panel_.txtServer->text().trimmed();
    const QString user = panel_.txtUser->text().trimmed();
    bool good = false;
    {
      const Busy busy(uses_.screen);
      panel_.lblStatus->caption = u"Connecting..."_s;
      good = mFTP_.OpenConnection(server, user, panel_.txtPassword->text()) &&
             mFTP_.SetFTPDirectory(u"/"_s);
      panel_.lblStatus->caption = QString();
    }
    if (!good) {
      mFTP_.CloseConnection();
      cmdDisconnect_Click();
      return sayFailure();
    }
    caption(u"Connected to %1 as %2 at %3"_s.arg(server, user,
                                                 uses_.clock.now().toString(u"hh:mm:ss"_s)));
    remember(uses_.settings, u"Server"_s, server);
    remember(uses_.settings, u"User"_s, user);
    refresh();
  });
}

void FtpForm::cmdDisconnect_Click() {
  mFTP_.CloseConnection();
  rows_.reset();
  panel_.lv->clear();
  panel_.lblDir->caption = QString();
  caption(u"Not Connected."_s);
}

void FtpForm::cmdRefresh_Click() {
  work([this] { refresh(); });
}

void FtpForm::refresh() {
  if (!mFTP_.connected()) return;
  std::shared_ptr<cDirList> list;
  {
    const Busy busy(uses_.screen);
    panel_.lblDir->caption = u"Current Directory: "_s + mFTP_.GetFTPDirectory().trimmed();
    list = mFTP_.GetDirectoryListing(u"*.*"_s);
  }
  if (!mFTP_.connected()) return;  // left meanwhile
  showList(std::move(list));
  if (!mFTP_.badTime.isEmpty() && !safe()) dialog_.messages.say(std::exchange(mFTP_.badTime, {}));
}

void FtpForm::showList(std::shared_ptr<cDirList> list) {
  rows_ = std::make_shared<FtpRows>(std::move(list));
  panel_.lv->setRows(rows_);
  panel_.lv->row = 0;
}

const cDirItem* FtpForm::chosen() const {
  return rows_ ? rows_->entry(panel_.lv->row()) : nullptr;
}

void FtpForm::enter(const cDirItem& item) {
  const Busy busy(uses_.screen);
  if (!mFTP_.SetFTPDirectory(item.fileName) && !item.link) sayFailure();
}

void FtpForm::lv_DblClick(int row) {
  if (!rows_ || working_) return;
  const cDirItem* item = rows_->entry(row);
  if (row != 1 && !item) return;
  // What a link leads to shows when it is entered.
  if (item && !item->directory() && !item->link) return cmdDownload_Click();
  cDirItem entered;
  entered.fileName = QString::fromLatin1(kParentRow);
  if (item) entered = *item;
  work([&] {
    const QString before = panel_.lblDir->caption();
    enter(entered);
    refresh();
    if (entered.link && panel_.lblDir->caption() == before) downloadFile(entered);
  });
}

void FtpForm::cmdDownload_Click() {
  const cDirItem* item = chosen();
  if (!item || (item->directory() && !safe())) return;
  const cDirItem wanted = *item;
  work([&] { wanted.directory() ? downloadFolder(wanted) : downloadFile(wanted); });
}

// Shows the bar while it is under way, then what came of it.
void FtpForm::transfer(const QString& doing, const std::function<bool()>& what) {
  const qint64 begun = uses_.clock.monotonicMs();
  bool good = false;
  {
    const Busy busy(uses_.screen);
    panel_.pb->value = 0;
    panel_.pb->visible = true;
    safe_ = safe();
    if (safe_) panel_.cmdCancel->caption = u"Cancel"_s;
    rate_.begin(begun);
    good = what();
    panel_.pb->visible = false;
    panel_.cmdCancel->caption = u"Close"_s;
    panel_.lblStatus->caption = QString();
    which_.clear();
  }
  if (!form_.shown()) return;  // left meanwhile, and the transfer with it
  if (!good)
    sayFailure();
  else
    dialog_.messages.say(
        u"%1 complete in %2 seconds."_s.arg(doing, secondsText(uses_.clock.monotonicMs() - begun)));
  refresh();
}

void FtpForm::downloadFile(const cDirItem& item) {
  if (const QString refusal = nameRefusal(item.bytes); safe() && !refusal.isEmpty()) {
    dialog_.messages.say(refusal);
    return;
  }
  ChooserRequest request;
  request.title = u"Save As"_s;
  request.kind = ChooserRequest::Save;
  request.name = QString(item.fileName).remove(u'/');
  if (safe())
    request.keep = [this](const QString& path) {
      if (uses_.files.FolderExists(path)) return u"That is a folder. Type another name."_s;
      const bool free = !uses_.files.FileExists(path);
      return free || dialog_.messages.confirm(
                         u"%1 exists already. Do you want to replace it?"_s.arg(path))
                 ? QString()
                 : u"Choose another name."_s;
    };
  const std::optional<QString> local = uses_.chooser.open(request);
  if (!local || local->isEmpty()) return;
  transfer(u"Download"_s, [&] { return mFTP_.FTPDownloadFile(*local, item.fileName); });
}

void FtpForm::downloadFolder(const cDirItem& item) {
  if (const QString refusal = nameRefusal(item.bytes); !refusal.isEmpty()) {
    dialog_.messages.say(refusal);
    return;
  }
  ChooserRequest request;
  request.title = u"Save the folder "_s + item.fileName + u" in"_s;
  const std::optional<QString> into = uses_.chooser.open(request);
  if (!into) return;
  FolderTransfer folder(mFTP_, [this](int number, int count, const QString& name) {
    which_ =
        count ? u"%1 of %2: %3   "_s.arg(number).arg(count).arg(name) : u"Listing %1"_s.arg(name);
    panel_.lblStatus->caption = which_;
    rate_.begin(uses_.clock.monotonicMs());
  });
  const QByteArray remote = mFTP_.pathOf(item.fileName);
  transfer(u"Download"_s,
           [&] { return folder.download(remote, FileSystem::BuildPath(*into, item.fileName)); });
  if (!folder.refusals().isEmpty()) dialog_.messages.say(folder.refusals().join(u'\n'));
}

void FtpForm::cmdUpload_Click() {
  if (!mFTP_.connected()) return;
  work([this] {
    ChooserRequest request;
    request.title = u"Open"_s;
    request.kind = ChooserRequest::File;
    const std::optional<QString> local = uses_.chooser.open(request);
    if (!local || local->isEmpty()) return;
    const QString name = local->section(u'/', -1);
    transfer(u"Upload"_s, [&] { return mFTP_.FTPUploadFile(*local, name); });
  });
}

void FtpForm::cmdUploadDir_Click() {
  if (!mFTP_.connected()) return;
  work([this] {
    ChooserRequest request;
    request.title = u"Upload a folder"_s;
    std::optional<QString> local = uses_.chooser.open(request);
    while (local && local->endsWith(u'/')) local->chop(1);
    if (!local || local->isEmpty()) return;
    FolderTransfer folder(mFTP_, [this](int number, int count, const QString& name) {
      which_ = u"%1 of %2: %3   "_s.arg(number).arg(count).arg(name);
      panel_.lblStatus->caption = which_;
      rate_.begin(uses_.clock.monotonicMs());
    });
    const QByteArray remote = mFTP_.pathOf(local->section(u'/', -1));
    transfer(u"Upload"_s, [&] { return folder.upload(*local, remote); });
  });
}

void FtpForm::cmdDelete_Click() {
  const cDirItem* item = chosen();
  if (!item) return;
  const cDirItem gone = *item;
  work([&] {
    if (!dialog_.messages.confirm(
            u"Delete?\n\nAre you sure you want to delete %1?"_s.arg(gone.fileName)))
      return;
    bool good = false;
    {
      const Busy busy(uses_.screen);
      good = gone.directory() ? mFTP_.RemoveFTPDirectory(gone.fileName)
                              : mFTP_.DeleteFTPFile(gone.fileName);
    }
    if (!good)
      sayFailure();
    else
      dialog_.messages.say((gone.directory() ? u"Directory %1 was successfully removed."_s
                                             : u"The file %1 was successfully deleted."_s)
                               .arg(gone.fileName));
    refresh();
  });
}

void FtpForm::cmdRename_Click() {
  const cDirItem* item = chosen();
  if (!item) return;
  const QString before = item->fileName;
  work([&] {
    const QString name = dialog_.messages.ask(u"Please enter a new name for this file:"_s);
    if (name.isEmpty()) return;
    bool good = false;
    {
      const Busy busy(uses_.screen);
      good = mFTP_.RenameFTPFile(before, name);
    }
    if (!good)
      sayFailure();
    else
      dialog_.messages.say(u"The file "_s + before + u"was successfuly renamed to "_s + name);
    refresh();
  });
}

void FtpForm::cmdCreateDir_Click() {
  if (!mFTP_.connected()) return;
  work([this] {
    const QString name = dialog_.messages.ask(u"Please enter a name for this directory:"_s);
    if (name.isEmpty()) return;
    bool good = false;
    {
      const Busy busy(uses_.screen);
      good = mFTP_.CreateFTPDirectory(name);
    }
    if (!good)
      sayFailure();
    else
      dialog_.messages.say(u"Directory "_s + name + u" was successfully created."_s);
    refresh();
  });
}

void FtpForm::cmdCancel_Click() {
  if (working_ && safe() && mFTP_.busy()) return mFTP_.cancel();
  mFTP_.CloseConnection();
  leave();
}

void FtpForm::mFTP_FileTransferProgress(qint64 bytesSoFar, qint64 fileSize) {
  if (!form_.shown()) mFTP_.cancel();  // the window goes
  constexpr qint64 kSteps = 1000;      // more of them no bar can show
  if (fileSize > 0 && fileSize >= bytesSoFar) {
    const auto share = static_cast<double>(bytesSoFar) / static_cast<double>(fileSize);
    panel_.pb->value = std::floor(share * kSteps) * 100 / kSteps;
  }
  if (!safe_) return;
  const QString words = rate_.words(bytesSoFar, fileSize, uses_.clock.monotonicMs());
  if (!words.isEmpty()) panel_.lblStatus->caption = which_ + words;
}

}  // namespace korvane
