// The controls in the window of one block.
#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "shell/base/program_picture.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/eeprom/block_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/clipboard.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr Text vColumn{};  // the V column has the same caption in every language
constexpr std::array<Text, BlockView::facts> factTexts{
    Text::ColumnDescription, Text::ColumnState,         Text::PhoneAddress, Text::ColumnSize, vColumn,
    Text::ColumnOffset,      Text::ColumnHeaderPosition};

struct Column {
  Text caption;
  int width;  // in device-independent pixels
};
constexpr Column generationColumns[] = {{Text::ColumnState, 110},  {vColumn, 50},
                                        {Text::ColumnSize, 80},    {Text::ColumnHeaderPosition, 180},
                                        {Text::ColumnOffset, 100}, {Text::ColumnData, 300}};

wxString CaptionOf(Text column, const Messages& texts) {
  return column == vColumn ? wxString("V") : Wx(texts.Msg(column));
}

wxDataViewListCtrl* MakeList(wxWindow* parent, long style = 0) {
  return new wxDataViewListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxDV_ROW_LINES | wxDV_VERT_RULES | style);
}

void AddColumn(wxDataViewListCtrl& list, int width) {
  list.AppendTextColumn(wxString(), wxDATAVIEW_CELL_INERT, list.FromDIP(width), wxALIGN_LEFT,
                        wxDATAVIEW_COL_RESIZABLE);
}

// Copies the cells of the selected row, tab-separated; of a reading, the text alone.
void CopySelectedRow(const wxDataViewListCtrl& list) {
  const int row = list.GetSelectedRow();
  if (row == wxNOT_FOUND) return;
  const bool isReading = list.GetColumnCount() == 2;
  wxString text;
  for (unsigned column = isReading ? 1 : 0; column < list.GetColumnCount(); ++column)
    text << (text.empty() ? "" : "\t") << list.GetTextValue(static_cast<unsigned>(row), column);
  Copy(Utf8(text));
}

// Explains a button that has no words.
void Explain(wxButton& button, const wxString& text) {
  button.SetToolTip(text);
  platform::SetAccessibleName(button, text);
}

}  // namespace

BlockView::BlockView(Workbench& bench, std::function<const EepromFindings&()> blocks)
    : wxDialog(&bench.frame.Parent(), wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      bench_(bench),
      blocks_(std::move(blocks)) {
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeFacts(), 0, wxEXPAND | wxALL, gap);
  generationsLabel_ = new wxStaticText(this, wxID_ANY, wxString());
  column->Add(generationsLabel_, 0, wxLEFT | wxRIGHT, gap);
  generations_ = MakeList(this);
  for (const Column& part : generationColumns) AddColumn(*generations_, part.width);
  generations_->SetMinSize(FromDIP(wxSize(200, 110)));
  column->Add(generations_, 1, wxEXPAND | wxALL, gap);
  MakeSheets();
  column->Add(sheets_, 3, wxEXPAND | wxLEFT | wxRIGHT, gap);
  column->Add(MakeButtons(), 0, wxEXPAND | wxALL, gap);
  SetSizer(column);
  SetMinSize(FromDIP(wxSize(480, 360)));
  SetSize(FromDIP(wxSize(940, 600)));
  SetEscapeId(wxID_CLOSE);
  SetIcons(ProgramIcons());
  Bind();
  Recaption();
  CentreOnParent();
}

wxSizer* BlockView::MakeFacts() {
  for (std::size_t i = 0; i < facts; ++i) {
    labels_[i] = new wxStaticText(this, wxID_ANY, wxString());
    values_[i] = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                  wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    values_[i]->SetFont(values_[i]->GetFont().Bold());
  }
  auto* top = new wxBoxSizer(wxHORIZONTAL);
  top->Add(labels_[Description], 0, wxRIGHT, FromDIP(8));
  top->Add(values_[Description], 1);
  auto* grid = new wxFlexGridSizer(6, FromDIP(wxSize(8, 4)));
  for (std::size_t i = State; i < facts; ++i) {
    grid->Add(labels_[i], 0);
    grid->Add(values_[i], 0, wxEXPAND);
  }
  for (const std::size_t column : {1, 3, 5}) grid->AddGrowableCol(column, 1);
  auto* both = new wxBoxSizer(wxVERTICAL);
  both->Add(top, 0, wxEXPAND | wxBOTTOM, FromDIP(4));
  both->Add(grid, 0, wxEXPAND);
  return both;
}

void BlockView::MakeSheets() {
  sheets_ = NewSplitter(*this);
  dump_ = new wxTextCtrl(sheets_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_DONTWRAP | wxTE_NOHIDESEL);
  dump_->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  dump_->SetMargins(FromDIP(4));
  auto* right = new wxPanel(sheets_);
  readingsLabel_ = new wxStaticText(right, wxID_ANY, wxString());
  readings_ = MakeList(right, wxDV_NO_HEADER);
  AddColumn(*readings_, 150);
  AddColumn(*readings_, 400);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(readingsLabel_, 0, wxEXPAND | wxBOTTOM, FromDIP(4));
  column->Add(readings_, 1, wxEXPAND);
  right->SetSizer(column);
  sheets_->SetMinimumPaneSize(FromDIP(100));
  sheets_->SplitVertically(dump_, right);
}

wxSizer* BlockView::MakeButtons() {
  previous_ = new wxButton(this, wxID_ANY, "<", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  next_ = new wxButton(this, wxID_ANY, ">", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  for (wxButton* arrow : {previous_, next_}) arrow->SetMinSize(FromDIP(wxSize(36, -1)));
  hexView_ = new wxButton(this, wxID_ANY, "-");
  close_ = new wxButton(this, wxID_CLOSE, "-");
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(previous_, 0, wxEXPAND);
  row->Add(next_, 0, wxEXPAND | wxLEFT, FromDIP(4));
  row->AddStretchSpacer();
  row->Add(hexView_);
  row->Add(close_, 0, wxLEFT, FromDIP(8));
  return row;
}

void BlockView::Bind() {
  // The handler may refill the clicked list, so it waits until the click is over.
  generations_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    const int row = generations_->ItemToRow(event.GetItem());
    if (row >= 0) CallAfter([this, row] { Generation_Click(static_cast<std::size_t>(row)); });
  });
  for (wxDataViewListCtrl* list : {generations_, readings_})
    list->Bind(wxEVT_CHAR_HOOK, [list](wxKeyEvent& event) {
      if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C')
        CopySelectedRow(*list);
      else
        event.Skip();
    });
  const auto follow = [this](wxEvent& event) {
    event.Skip();
    CallAfter([this] { ReadFromCaret(); });  // the control moves its caret after this
  };
  dump_->Bind(wxEVT_LEFT_UP, follow);
  dump_->Bind(wxEVT_KEY_UP, follow);
  const auto run = [this](wxButton* button, void (BlockView::*command)()) {
    button->Bind(wxEVT_BUTTON, [=, this](wxCommandEvent&) {
      bench_.talk.Guard(button->GetLabelText(), [=, this] { (this->*command)(); });
    });
  };
  run(previous_, &BlockView::Previous_Click);
  run(next_, &BlockView::Next_Click);
  run(hexView_, &BlockView::HexView_Click);
}

void BlockView::Recaption() {
  for (std::size_t i = 0; i < facts; ++i)
    labels_[i]->SetLabelText(CaptionOf(factTexts[i], bench_.texts) + Msg(Text::Colon));
  generationsLabel_->SetLabelText(Wx(bench_.texts.Label(Text::OtherGenerations)));
  for (unsigned i = 0; i < std::size(generationColumns); ++i) {
    const auto& [caption, width] = generationColumns[i];
    const wxString title = CaptionOf(caption, bench_.texts);  // bold on some systems
    generations_->GetColumn(i)->SetTitle(title);
    generations_->GetColumn(i)->SetWidth(
        std::max(FromDIP(width), generations_->GetTextExtent(title).x * 9 / 8 + FromDIP(24)));
  }
  platform::SetAccessibleName(*generations_, Msg(Text::OtherGenerations));
  platform::SetAccessibleName(*dump_, Msg(Text::ColumnData));
  platform::SetAccessibleName(*readings_, Msg(Text::ReadAsText));
  Explain(*previous_, Msg(Text::PreviousBlock));
  Explain(*next_, Msg(Text::NextBlock));
  hexView_->SetLabelText(Msg(Text::OpenInHexView));
  close_->SetLabelText(Msg(Text::Close));
  if (shown_) {
    ShowFacts();
    ShowGenerations();
    ShowDump();
    ShowReadings();
  }
  Layout();
}

}  // namespace tarvelo
