// clsPrintApi: the dialog before a print, frmPrint. Which printer, which paper, how many copies,
// and the page as it will be.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "photos/print/print_layout.h"
#include "platform/imaging.h"
#include "platform/pump.h"

namespace korvane {

class clsPrintApi : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Printing& printing;
    const Imaging& imaging;
    Settings& settings;
    Pump& pump;  // all of them outlive its pending work
  };
  explicit clsPrintApi(Uses uses);

  // The picture that the preview shows, and how it will be printed.
  struct Shown {
    QString path;
    bool upright = false;  // obeys the orientation of EXIF
    PrintSize size = PrintSize::FourBySix;
    PrintFit fit = PrintFit::Crop;
  };
  // False when the user cancels; then all is as before. Printer, paper and turn are kept in the
  // per-user settings, the copies are one again. Yields.
  bool ShowPrinter(const Shown& shown);

  struct Choice {
    QString printer;
    Printing::Paper paper;
    int copies = 1;
    PrintTurn turn = PrintTurn::AsPicture;
  };
  const Choice& choice() const { return choice_; }  // of the last ShowPrinter() that was true

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* gridPrinters = bind("gridPrinters");
    Grid* gridPapers = bind("gridPapers");
    PictureArea* picPreview = bind("picPreview");
    Label* lblMeasures = bind("lblMeasures");
    Label* lblCopies = bind("lblCopies");
    Label* lblStatus = bind("lblStatus");
    Button* cmdFewer = bind("cmdFewer");
    Button* cmdMore = bind("cmdMore");
    Button* cmdTurn = bind("cmdTurn");
    Button* cmdok = bind("cmdok");
  };
  struct Decoded;  // of the preview, decoded once
  struct Drawing;  // one preview in the making

  void Form_Load();
  void gridPrinters_Click(int row);
  void gridPapers_Click(int row);
  void cmdTurn_Click();
  void cmdok_Click();

  void showPrinters();
  void showCopies(int copies);
  void showTurn(PrintTurn turn);
  void showMeasures(const PrintPage& page);
  void drawPreview();
  const Printing::Printer* printer() const;  // the chosen one; null for none
  const Printing::Paper* paper() const;      // the chosen one; null for none
  QString kept(const QString& name) const;
  void keep(const QString& name, const QString& value);

  Uses uses_;
  Panel panel_;
  Shown shown_;
  Choice choice_;
  std::vector<Printing::Printer> printers_;
  int copies_ = 1;
  PrintTurn turn_ = PrintTurn::AsPicture;
  std::shared_ptr<Decoded> picture_;  // another one for each time that the dialog opens
  bool drawing_ = false, again_ = false;
  bool chosen_ = false;
};

std::span<const InventoryRow> printInventory();  // frmPrint

}  // namespace korvane
