// The control socket, line by line.
#include "view/remote/control_server.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTimer>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

struct ThirtyCells : CellSource {
  int count() const override { return 30; }
  QString caption(int cell) const override { return u"p%1.jpg"_s.arg(cell); }
  std::optional<Picture> picture(int) const override { return Picture(); }
  Colour back(int cell) const override { return static_cast<Colour>(cell); }
};

class Socket : public SmallConsole {
 protected:
  Socket() {
    Grid& grid = control<Grid>("Grid", 0);
    grid.columns = {{u"Title"_s}, {u"Path"_s, 0, true}};
    grid.setRows(std::make_shared<CountedRows>(1000));
    form.on(u"cmdTop", Event::Click, [this](Control& pressed, const Event&) {
      if (pressed.index == 1) host.showModal(box);
    });
    box.on(u"cmdControls", Event::Click, [this](Control&, const Event&) {
      host.showModal(question);
      host.hide(box);
    });
    question.on(u"cmdControls", Event::Click,
                [this](Control&, const Event&) { host.hide(question); });
    box.find(u"msg")->caption = u"Sure?"_s;
    question.find(u"msg")->caption = u"Really?"_s;
    for (Form* each : {&box, &question}) each->find(u"cmdControls", 0)->caption = u"yes"_s;
    QString error;
    EXPECT_TRUE(server.listen(path, &error)) << error.toStdString();
    client.connectToServer(path);
  }

  QJsonObject ask(const QByteArray& line) {
    client.write(line + '\n');
    comes([this] { return client.canReadLine(); });
    return QJsonDocument::fromJson(client.readLine()).object();
  }

  // Asks from a thread of its own, as another program does, while the console's loops run.
  std::vector<QJsonObject> fromOutside(const std::vector<QByteArray>& lines) {
    std::vector<QJsonObject> answers(lines.size());
    bool ended = false;
    pump.inBackground(
        [&] {
          QLocalSocket socket;
          socket.connectToServer(path);
          for (size_t i = 0; i < lines.size(); ++i) {
            socket.write(lines[i] + '\n');
            while (!socket.canReadLine() && socket.waitForReadyRead(3000)) {
            }
            answers[i] = QJsonDocument::fromJson(socket.readLine()).object();
          }
        },
        [&] { ended = true; });
    while (!ended) settle(1);
    return answers;
  }

  Form question{u"frmMsgBox"_s, kBoxForm, {0, 0, 300, 200}};  // above a box of the same name
  QTemporaryDir directory;
  QString path = directory.filePath(u"control"_s);
  ControlServer server{host};
  QLocalSocket client;
};

TEST_F(Socket, IsTheUsersAlone) {
  EXPECT_FALSE(QFileInfo(path).permissions() & QFile::Permissions(0x77));  // group, others
  ControlServer second(host);
  QString error;
  EXPECT_FALSE(second.listen(path, &error)) << "the one that serves keeps its place";
  EXPECT_TRUE(error.contains(path));
}

TEST_F(Socket, AnswersEachLine) {
  const struct {
    const char* line;
    const char* answer;  // the answer, or the beginning of its error
  } lines[] = {
      {R"({"command":"press","name":"cmdTop","index":0})", R"({"ok":true})"},
      {R"({"command":"press","name":"Grid","index":0,"row":900})", R"({"ok":true})"},
      {R"({"command":"set","name":"Slider1","value":37})", R"({"ok":true})"},
      {R"({"command":"set","name":"txtName","value":"Abba"})", R"({"ok":true})"},
      {R"({"command":"set","name":"chkOn","value":true})", R"({"ok":true})"},
      {R"({"command":"drag","name":"Grid","index":0,"dy":-100,"ms":60})", R"({"ok":true})"},
      {R"({"command":"key","key":"Return"})", R"({"ok":true})"},
      {R"({"command":"messages"})", R"({"messages":[],"ok":true})"},
      {R"({"command":"rows","name":"Grid","index":0,"from":999,"count":5})",
       R"({"count":1000,"ok":true,"rows":[{"cells":["cell 1 of 999","cell 2 of 999"],"emphasised":false,"row":999},{"cells":["cell 1 of 1000","cell 2 of 1000"],"emphasised":false,"row":1000}]})"},
      {R"({"command":"press","name":"cmdSave"})", "cmdSave: it is hidden"},
      {R"({"command":"press","name":"cmdTop","index":9})", "no control \"cmdTop\" 9 on frmMain"},
      {R"({"command":"press","name":"Grid","index":0,"row":1001})", "Grid: it has no row 1001"},
      {R"({"command":"press","name":"Ticker"})", "Ticker: it cannot be pressed"},
      {R"({"command":"release"})", "nothing is held"},
      {R"({"command":"set","name":"Slider1","value":"x"})", "\"value\" is no number"},
      {R"({"command":"rows","name":"Slider1"})", "Slider1 is no list"},
      {R"({"command":"key","key":"NoSuchKey"})", "unknown key"},
      {R"({"command":"wait","name":"Slider1","property":"value","value":38,"timeout_ms":30})",
       "after 30 ms value of Slider1 is still \"37\""},
      {R"({"command":"wait","name":"Slider1","property":"colour","value":38})", "Slider1 has no"},
      {R"({"command":"screenshot","file":"/no/such/folder/a.png"})", "cannot write"},
      {R"({"command":"fly"})", "unknown command \"fly\""},
      {R"({"name":"cmdTop"})", "no \"command\""},
      {R"({"command":"messages","answer":"yes"})", "no box is open"},
      {"[1,2]", "not a JSON object"},
      {"\xff\xfe{", "not a JSON object"},
  };
  for (const auto& each : lines) {
    const QJsonObject answer = ask(each.line);
    const QByteArray whole = QJsonDocument(answer).toJson(QJsonDocument::Compact);
    if (*each.answer == '{') {
      EXPECT_EQ(whole, QByteArray(each.answer)) << each.line;
      continue;
    }
    EXPECT_TRUE(answer["error"_L1].toString().startsWith(QString::fromUtf8(each.answer)))
        << each.line << " gave " << whole.constData();
    EXPECT_EQ(answer["ok"_L1], QJsonValue(false));
  }
  EXPECT_EQ(control<Slider>("Slider1").value(), 37);
  EXPECT_EQ(control<Grid>("Grid", 0).row(), 900);
  EXPECT_TRUE(control<Check>("chkOn").checked());
  EXPECT_TRUE(heard.contains(u"cmdTop click"_s));
  EXPECT_TRUE(heard.contains(u"Slider1 release"_s));
}

TEST_F(Socket, TellsAllOfAControl) {
  control<Image>("cmdTop", 0).setPicture(u"MUSIC"_s, u"play"_s);
  const QJsonObject image = ask(R"({"command":"get","name":"cmdtop","index":0})");
  EXPECT_EQ(image["picture"_L1], QJsonValue(u"MUSIC/play"_s));
  EXPECT_EQ(image["pixels"_L1], QJsonValue(QJsonArray{10, 10, 100, 100}));
  control<TextBox>("txtName").text = u"secret"_s;
  control<TextBox>("txtName").passwordChar = u"*"_s;
  EXPECT_EQ(ask(R"({"command":"get","name":"txtName"})")["text"_L1], QJsonValue(u"******"_s));

  auto& sheet = control<Sheet>("sheetPictures");
  sheet.visible = true;
  sheet.setCells(std::make_shared<ThirtyCells>());
  auto& area = control<PictureArea>("picTransition");
  const auto pixels = std::make_shared<Pixels>();
  pixels->width = 4;
  pixels->height = 3;
  area.picture = Picture{{}, {}, nullptr, pixels};
  area.zoom = 150;
  const std::pair<QByteArray, QByteArray> table[] = {
      {R"({"command":"rows","name":"sheetPictures","from":29,"count":5})",
       R"({"count":30,"ok":true,"rows":[{"back":29,"caption":"p29.jpg","row":29}]})"},
      {R"({"command":"press","name":"sheetPictures","row":30})",
       R"({"error":"sheetPictures: it has no cell 30, only 30 from 0","ok":false})"},
      {R"({"command":"set","name":"sheetPictures","value":400})", R"({"ok":true})"}};
  for (const auto& [line, answer] : table)
    EXPECT_EQ(QJsonDocument(ask(line)).toJson(QJsonDocument::Compact), answer);
  const QJsonObject scrolled = ask(R"({"command":"get","name":"sheetPictures"})");
  for (const auto& [name, value] :
       {std::pair("cells", 30), {"columns", 3}, {"top", 400}, {"mostTop", 10 * 152 - 320}})
    EXPECT_EQ(scrolled[QLatin1StringView(name)], QJsonValue(value)) << name;
  const QJsonObject zoomed = ask(R"({"command":"get","name":"picTransition"})");
  EXPECT_EQ(zoomed["picture"_L1], QJsonValue(u"(4x3 pixels)"_s));
  EXPECT_EQ(zoomed["frame"_L1], QJsonValue(QJsonArray{4, 3}));
  EXPECT_EQ(zoomed["zoom"_L1], QJsonValue(150));
  EXPECT_EQ(zoomed["hand"_L1], QJsonValue(u"press"_s));
}

TEST_F(Socket, APressThatOpensABoxIsAnsweredAndTheTopmostBoxToo) {
  const std::vector<QJsonObject> answers = fromOutside({
      R"({"command":"press","name":"cmdTop","index":1})",
      R"({"command":"messages"})",
      R"({"command":"press","name":"cmdTop","index":0})",
      R"({"command":"press","form":"frmMain","name":"cmdTop","index":0})",
      R"({"command":"messages","answer":"maybe"})",
      R"({"command":"messages","answer":"yes"})",
      R"({"command":"messages"})",
      R"({"command":"messages","answer":"yes"})",
      R"({"command":"messages"})",
  });
  const auto error = [&](size_t i) { return answers[i]["error"_L1].toString(); };
  EXPECT_TRUE(answers[0]["ok"_L1].toBool());
  EXPECT_EQ(answers[1]["messages"_L1][0]["text"_L1], QJsonValue(u"Sure?"_s));
  EXPECT_EQ(error(2), u"no control \"cmdTop\" 0 on frmMsgBox"_s);
  EXPECT_EQ(error(3), u"cmdTop: the form frmMsgBox is above it"_s);
  EXPECT_EQ(error(4), u"the box has no answer \"maybe\""_s);
  EXPECT_TRUE(answers[5]["ok"_L1].toBool());
  EXPECT_EQ(answers[6]["messages"_L1][1]["text"_L1], QJsonValue(u"Really?"_s))
      << "the topmost last";
  EXPECT_EQ(answers[8]["messages"_L1].toArray().size(), 0);
  EXPECT_FALSE(box.shown() || question.shown());
}

TEST_F(Socket, WaitsWithoutHoldingTheConsoleUp) {
  QTimer::singleShot(400, [this] { control<Label>("lblState").caption = u"Playing: Waterloo"_s; });
  const QJsonObject answer =
      ask(R"({"command":"wait","name":"lblState","property":"caption","contains":"Waterloo"})");
  EXPECT_EQ(answer["ok"_L1], QJsonValue(true));
  EXPECT_GE(answer["ms"_L1].toInt(), 30);
}

TEST_F(Socket, ALineWithoutEndIsCutOff) {
  client.write(QByteArray(3 << 20, 'x'));
  EXPECT_TRUE(comes([this] { return client.state() == QLocalSocket::UnconnectedState; }));
}

}  // namespace
}  // namespace korvane
