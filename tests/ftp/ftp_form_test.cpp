// frmFTP over a server in memory: what its owner presses and reads.
#include "ftp/ftp_form.h"

#include "tests/fakes/fake_ftp_client.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

using What = FtpClient::Order;

struct FtpFormTest : FormWorld {
  FtpFormTest() {
    qputenv("HOME", home.path().toUtf8());  // where the chooser begins
    server.listing =
        "-rw-r--r-- 1 u g 600 Jan 12  2020 song one.mp3\ndrwxr-xr-x 1 u g 1 Jan 12  2020 music\n";
    server.files["/song one.mp3"] = QByteArray(600, 'x');
  }
  // Opens the form and does that on it, connected.
  void connected(const std::function<void(Form&)>& script) {
    host.onModal(u"frmFTP"_s, [this, script](Form& shown) {
      type(shown, u"txtServer"_s, u"host"_s);
      type(shown, u"txtUser"_s, u"me"_s);
      type(shown, u"txtPassword"_s, u"secret"_s);
      press(shown, u"cmdConnect"_s);
      messages.texts.clear();
      script(shown);
    });
    form.open();
  }
  static FtpClient::Result failure(int number, const QString& text) {
    FtpClient::Result result;
    result.number = number;
    result.text = text;
    return result;
  }
  static void choose(Form& shown, int row) { controlOf<Grid>(shown, u"lv").row = row; }
  static void openRow(Form& shown, int row) {
    choose(shown, row);
    shown.fire(*shown.find(u"lv"), {Event::DblClick, 1, row});
  }
  // The chooser comes up next; that is done there and OK pressed.
  void chooser(const std::function<void(Form&)>& then) {
    host.onModal(u"frmDirectorys"_s, [then](Form& shown) {
      then(shown);
      press(shown, u"cmdok"_s);
    });
  }
  static QStringList row(Form& shown, int number) {
    QStringList cells;
    for (int column = 1; column <= 4; ++column)
      cells << controlOf<Grid>(shown, u"lv").cell(column, number);
    return cells;
  }

  FakeFtpServer server;
  Screen screen;
  Chooser chooserForm{dialog, files};
  FtpForm form{{dialog, chooserForm, settings, files, screen, clock, pump,
                [this] { return std::make_unique<FakeFtpClient>(server); }}};
};

TEST_F(FtpFormTest, ConnectsListsAndRemembersAllButThePassword) {
  host.onModal(u"frmFTP"_s, [this](Form& shown) {
    EXPECT_EQ(shown.caption(), u"Not Connected."_s);
    EXPECT_EQ(textOf(shown, u"txtServer"_s), QString());
    press(shown, u"cmdDownload"_s);
    press(shown, u"cmdRefresh"_s);
    EXPECT_EQ(rows(shown, u"lv"_s), QStringList());
    server.failures[What::Open] = failure(67, u"Login denied"_s);
    press(shown, u"cmdConnect"_s);
    EXPECT_EQ(messages.texts.last(), u"InternetConnect error code: 67 Message: Login denied"_s);
    EXPECT_EQ(shown.caption(), u"Not Connected."_s);
    EXPECT_EQ(settings.GetSetting(u"Korvane"_s, u"Settings"_s, u"Server"_s), QString());
  });
  form.open();
  server.failures.clear();
  connected([this](Form& shown) {
    EXPECT_TRUE(shown.caption().startsWith(u"Connected to host as me at "_s));
    EXPECT_EQ(server.login.password, u"secret"_s);
    EXPECT_EQ(textOf(shown, u"lblDir"_s), u"Current Directory: /"_s);
    EXPECT_EQ(row(shown, 1), (QStringList{u".."_s, {}, {}, {}}));
    EXPECT_EQ(row(shown, 2), (QStringList{u"song one.mp3"_s, u"600"_s, u"2020-01-12"_s,
                                          u" -  -  -  -  N  -  -  -  - "_s}));
    EXPECT_EQ(row(shown, 3), (QStringList{u"music"_s, u"< Directory >"_s, {}, {}}));
    press(shown, u"optPassive"_s);
    press(shown, u"cmdConnect"_s);
    EXPECT_TRUE(server.login.passive);
    press(shown, u"cmdDisconnect"_s);
    EXPECT_EQ(rows(shown, u"lv"_s), QStringList());
    EXPECT_EQ(shown.caption(), u"Not Connected."_s);
  });
  EXPECT_FALSE(home.get(u"user.ini"_s).contains("secret"));
  host.onModal(u"frmFTP"_s, [](Form& shown) {
    EXPECT_EQ(textOf(shown, u"txtServer"_s), u"host"_s);
    EXPECT_EQ(textOf(shown, u"txtUser"_s), u"me"_s);
    EXPECT_EQ(textOf(shown, u"txtPassword"_s), QString());
  });
  form.open();
}

TEST_F(FtpFormTest, SaysWhatWasDoneInItsOwnWords) {
  connected([this](Form& shown) {
    choose(shown, 2);
    messages.typed = {u"two.mp3"_s};
    press(shown, u"cmdRename"_s);
    EXPECT_EQ(messages.texts,
              (QStringList{u"Please enter a new name for this file:"_s,
                           u"The file song one.mp3was successfuly renamed to two.mp3"_s}));
    EXPECT_TRUE(server.orders.contains(u"rename /song one.mp3 to /two.mp3"_s));
    messages.texts.clear();
    messages.typed = {u"new one"_s};
    press(shown, u"cmdCreateDir"_s);
    EXPECT_EQ(messages.texts, (QStringList{u"Please enter a name for this directory:"_s,
                                           u"Directory new one was successfully created."_s}));
    for (const auto& [number, said] :
         {std::pair(2, u"The file song one.mp3 was successfully deleted."_s),
          std::pair(3, u"Directory music was successfully removed."_s)}) {
      choose(shown, number);
      messages.texts.clear();
      press(shown, u"cmdDelete"_s);  // No
      EXPECT_EQ(messages.texts.size(), 1);
      choose(shown, number);
      messages.answers = {Messages::Yes};
      press(shown, u"cmdDelete"_s);
      EXPECT_TRUE(messages.texts.first().contains(u"Are you sure you want to delete "_s));
      EXPECT_EQ(messages.texts.last(), said);
    }
    server.failures[What::Delete] = failure(21, u"x"_s);
    server.failures[What::Delete].said = u"550 No."_s;
    choose(shown, 2);
    messages.answers = {Messages::Yes};
    press(shown, u"cmdDelete"_s);
    EXPECT_EQ(messages.texts.last(), u"550 No."_s);
  });
}

TEST_F(FtpFormTest, ARowIsOpenedByTwoTapsAndTheFirstOneLeadsUp) {
  connected([this](Form& shown) {
    for (const char* button : {"cmdDownload", "cmdDelete", "cmdRename"}) {
      choose(shown, 1);
      press(shown, QString::fromLatin1(button));
    }
    EXPECT_EQ(messages.texts, QStringList());
    openRow(shown, 3);
    EXPECT_EQ(textOf(shown, u"lblDir"_s), u"Current Directory: /music"_s);
    openRow(shown, 1);
    EXPECT_EQ(textOf(shown, u"lblDir"_s), u"Current Directory: /"_s);
    choose(shown, 3);
    press(shown, u"cmdDownload"_s);  // a folder, and they go by FtpSafe alone
    EXPECT_EQ(messages.texts, QStringList());
    chooser([](Form& save) { type(save, u"txtListenerDrive"_s, u"here.mp3"_s); });
    openRow(shown, 2);
    EXPECT_TRUE(messages.texts.last().startsWith(u"Download complete in 0."_s));
    EXPECT_FALSE(canPress(shown, u"cmdUploadDir"_s));
  });
}

TEST_F(FtpFormTest, FilesGoUpAndDownWithABarAndOneAtATime) {
  given(key::FtpSafe, u"YES"_s);
  home.put(u"in/old.mp3"_s, "old");
  qputenv("HOME", (home / u"in"_s).toUtf8());
  server.piece = 100;
  connected([this](Form& shown) {
    const Progress& pb = controlOf<Progress>(shown, u"pb");
    chooser([](Form& save) {
      EXPECT_EQ(textOf(save, u"txtListenerDrive"_s), u"song one.mp3"_s);
      tap(save, u"File1"_s, u"old.mp3"_s);
      EXPECT_EQ(textOf(save, u"txtListenerDrive"_s), u"old.mp3"_s);
    });
    messages.answers = {Messages::Yes};
    choose(shown, 2);
    pump.duringYield = [&] {
      pump.duringYield = [&] {
        press(shown, u"cmdUpload"_s);  // not while another is at work
        EXPECT_TRUE(pb.visible());
        EXPECT_TRUE(screen.busy());
        EXPECT_EQ(textOf(shown, u"cmdCancel"_s), u"Cancel"_s);
      };
    };
    press(shown, u"cmdDownload"_s);
    EXPECT_TRUE(
        messages.texts.first().endsWith(u"old.mp3 exists already. Do you want to replace it?"_s));
    EXPECT_TRUE(messages.texts.last().startsWith(u"Download complete in "_s));
    EXPECT_TRUE(messages.texts.last().endsWith(u" seconds."_s));
    EXPECT_EQ(home.get(u"in/old.mp3"_s), QByteArray(600, 'x'));
    EXPECT_FALSE(pb.visible());
    EXPECT_FALSE(screen.busy());

    chooser([](Form& chosen) { controlOf<Grid>(chosen, u"File1").row = 1; });
    press(shown, u"cmdUpload"_s);
    EXPECT_TRUE(messages.texts.last().startsWith(u"Upload complete in "_s));
    EXPECT_EQ(server.files["/old.mp3"].size(), 600);
    chooser([](Form&) {});
    press(shown, u"cmdUploadDir"_s);
    EXPECT_EQ(server.files["/in/old.mp3"].size(), 600);
  });
}

TEST_F(FtpFormTest, ACancelledTransferAndAnEvilNameAreSaid) {
  given(key::FtpSafe, u"YES"_s);
  server.listing += "-rw-r--r-- 1 u g 600 Jan 12  2020 ../evil\n";
  server.piece = 10;
  connected([this](Form& shown) {
    choose(shown, 4);
    press(shown, u"cmdDownload"_s);
    EXPECT_TRUE(messages.texts.last().contains(u"leads out of the folder"_s));
    chooser([&](Form&) {
      pump.duringYield = [&] { pump.duringYield = [&] { press(shown, u"cmdCancel"_s); }; };
    });
    choose(shown, 2);
    press(shown, u"cmdDownload"_s);
    EXPECT_EQ(messages.texts.last(),
              u"The download was cancelled. Start it again to go on with it."_s);
    EXPECT_TRUE(shown.shown());
    press(shown, u"cmdCancel"_s);  // now it closes
    EXPECT_FALSE(shown.shown());
  });
}

TEST_F(FtpFormTest, EverythingIsLargeEnoughForAFingerAndLiesApart) {
  std::vector<const Control*> pressed;
  for (const auto& control : form.form().controls())
    if (control->kind == Kind::Button || control->kind == Kind::Text || control->kind == Kind::Grid)
      pressed.push_back(control.get());
  for (const Control* one : pressed) {
    EXPECT_GE(one->rect().height, 72) << one->name.toStdString();
    EXPECT_LE(one->rect().right(), 1280);
    EXPECT_LE(one->rect().bottom(), 768);
    for (const Control* other : pressed)
      EXPECT_TRUE(one == other || apart(one->rect(), other->rect()))
          << one->name.toStdString() << " " << other->name.toStdString();
  }
}

}  // namespace
}  // namespace korvane
