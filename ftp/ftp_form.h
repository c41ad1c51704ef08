// frmFTP: files between this console and an FTP server.
#pragma once

#include "core/chooser.h"
#include "core/screen.h"
#include "core/settings.h"
#include "ftp/ftp.h"
#include "ftp/ftp_rows.h"
#include "ftp/transfer_rate.h"

namespace korvane {

class FtpForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Chooser& chooser;
    Settings& settings;
    FileSystem& files;
    Screen& screen;
    Clock& clock;
    Pump& pump;
    std::function<std::unique_ptr<FtpClient>()> makeClient;
  };
  explicit FtpForm(Uses uses);

  void open();   // Yields.
  void close();  // with its connection

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblCaption = bind("lblCaption");
    TextBox* txtServer = bind("txtServer");
    TextBox* txtUser = bind("txtUser");
    TextBox* txtPassword = bind("txtPassword");
    Label* lblDir = bind("lblDir");
    Grid* lv = bind("lv");
    Progress* pb = bind("pb");
    Label* lblStatus = bind("lblStatus");
    Button* cmdUploadDir = bind("cmdUploadDir");
    Button* cmdCancel = bind("cmdCancel");
    Button* optActive = bind("optActive");
    Button* optPassive = bind("optPassive");
    Button* optBin = bind("optBin");
    Button* optAscii = bind("optAscii");
  };

  void connectButtons();
  void Form_Load();
  void Form_Unload();
  void textBox_Click(TextBox& box, const QString& prompt, bool password);
  void cmdConnect_Click();
  void cmdDisconnect_Click();
  void cmdRefresh_Click();
  void lv_DblClick(int row);
  void cmdDownload_Click();
  void cmdUpload_Click();
  void cmdUploadDir_Click();
  void cmdDelete_Click();
  void cmdRename_Click();
  void cmdCreateDir_Click();
  void cmdCancel_Click();
  void mFTP_FileTransferProgress(qint64 bytesSoFar, qint64 fileSize);

  bool safe() const { return uses_.settings.flag(key::FtpSafe); }
  // Does it unless another is at work: under the hourglass, and with the list as it is then.
  void work(const std::function<void()>& what);
  void transfer(const QString& doing, const std::function<bool()>& what);
  void refresh();
  void showList(std::shared_ptr<cDirList> list);
  const cDirItem* chosen() const;  // null for none and for ".."
  void downloadFile(const cDirItem& item);
  void downloadFolder(const cDirItem& item);
  void enter(const cDirItem& item);
  void sayFailure();
  void caption(const QString& text);
  void options();

  Uses uses_;
  Panel panel_;
  cFTP mFTP_;
  std::shared_ptr<FtpRows> rows_;
  TransferRate rate_;
  QString which_;  // of how many files the one on its way is
  bool working_ = false;
  bool safe_ = false;  // as the transfer under way began
};

}  // namespace korvane
