#include "shell/patch/patch_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include <utility>

#include "core/file.h"
#include "patch/document_check_text.h"
#include "patch/patch_document.h"
#include "patch/patch_lines.h"
#include "patch/patch_merge.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/patch/patch_editor.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/change_as_code.h"
#include "shell/services/ids.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/unsaved_patch.h"
#include "shell/view/change_view.h"

namespace tarvelo {
namespace {

constexpr Offset patchLimit = 0x100000;  // changed bytes; as text they take several times as much memory

// The bytes that a patch changes, from the first to the last one.
std::string NameFor(const std::vector<Change>& changes) {
  const Offset first = changes.front().offset;
  const Offset last = changes.back().offset + changes.back().Size() - 1;
  return first == last ? PatchAddress(first) : PatchAddress(first) + " - " + PatchAddress(last);
}

}  // namespace

PatchPanel::PatchPanel(Workbench& bench)
    : Panel({.menuEntry = Id::PatchMenu, .name = Text::Patch, .saveTextCaption = Text::SavePatch}),
      bench_(bench),
      window_(new wxPanel(&bench.frame.Parent())),
      totals_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      halves_(new wxSplitterWindow(window_, wxID_ANY, wxDefaultPosition, window_->FromDIP(wxSize(400, 300)),
                                   wxSP_LIVE_UPDATE)),
      editor_(new PatchEditor(halves_)),
      below_(new wxPanel(halves_)),
      lineFacts_(new wxStaticText(below_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                  wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      preview_(new ChangeView(below_, bench)),
      files_(bench),
      check_(bench.document, *editor_, [this] { ShowTotals(); }),
      search_(bench,
              [this](const auto& text, SearchFrom from) {
                return editor_->SelectNext(text, from == SearchFrom::Before);
              }),
      commands_(MakeCommands()) {
  Layout();
  BindEditor();
  watch_ = bench.document.OnChange([this] {
    check_.Restart();
    shownLine_.clear();
    isLineStale_ = true;
  });
}

void PatchPanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* lower = new wxBoxSizer(wxVERTICAL);
  lower->Add(lineFacts_, 0, wxEXPAND | wxALL, gap);
  lower->Add(preview_, 1, wxEXPAND);
  below_->SetSizer(lower);
  halves_->SetMinimumPaneSize(window_->FromDIP(40));
  halves_->SetSashGravity(1);
  halves_->SplitHorizontally(editor_, below_, -window_->FromDIP(130));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(totals_, 0, wxEXPAND | wxALL, gap);
  all->Add(halves_, 1, wxEXPAND);
  window_->SetSizer(all);
}

void PatchPanel::BindEditor() {
  editor_->Bind(wxEVT_STC_CHANGE, [this](wxStyledTextEvent&) { TextChanged(); });
  editor_->Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    const bool isStale = isLineStale_ || editor_->CaretLine() != shownAt_;
    if (isStale && editor_->IsShownOnScreen()) ShowCaretLine();
    event.Skip();
  });
  editor_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    if (event.GetPosition() == wxDefaultPosition) editor_->EnsureCaretVisible();
    bench_.frame.PopUpCommands(MenuPlace(event, *editor_, editor_->BelowCaret()));
  });
  bench_.frame.AcceptDrops(*editor_);
  bench_.frame.AcceptDrops(*preview_);
}

wxWindow& PatchPanel::Window() { return *window_; }

wxWindow& PatchPanel::FirstFocus() { return *editor_; }

void PatchPanel::Build() {
  isLineStale_ = true;
  ShowTotals();
}

void PatchPanel::Clear() {
  editor_->Forget();
  files_.Forget();
  check_.Restart();
  shownLine_.clear();
  preview_->ShowChange({});
}

void PatchPanel::Recaption(const Messages& messages) {
  platform::SetAccessibleName(*editor_, Wx(messages.Msg(Traits().name)));
  platform::SetAccessibleName(*preview_, Wx(messages.Msg(Text::ChangeAsCode)));
  shownLine_.clear();
  isLineStale_ = true;
  ShowTotals();
}

Offset PatchPanel::Here() const { return static_cast<Offset>(editor_->CaretLine()); }

void PatchPanel::Return(Offset here) { editor_->GoToLine(static_cast<std::size_t>(here)); }

// --- the check ---

void PatchPanel::ShowTotals() {
  const DocumentCheck* check = check_.Complete();
  std::string text = PathText(files_.Path().filename());
  const auto append = [&](const std::string& more) {
    text.append(text.empty() || more.empty() ? "" : "    ") += more;
  };
  if (check)
    append(TotalsText(*check, bench_.texts));
  else if (!editor_->IsEmpty())
    append(std::string(bench_.texts.Msg(Text::CheckingPatch)));
  totals_->SetLabelText(Wx(text));
  totals_->SetToolTip(Wx(text));  // for a narrow window
  isLineStale_ = true;
}

// Called when there is time, not for each key.
void PatchPanel::ShowCaretLine() {
  isLineStale_ = false;
  const DocumentCheck* check = check_.Complete();
  shownAt_ = editor_->CaretLine();
  lineFacts_->SetLabelText(check ? Wx(LineText(*check, shownAt_, bench_.texts)) : wxString());
  std::string line = editor_->LineAtCaret();
  if (line == shownLine_) return;
  shownLine_ = std::move(line);
  bench_.talk.Guard(Wx(bench_.texts.Msg(Text::ChangeAsCode)),
                    [this] { preview_->ShowChange(CaretChange()); });
}

wxString PatchPanel::Totals() const { return totals_->GetLabelText(); }

wxString PatchPanel::LineFacts() const { return lineFacts_->GetLabelText(); }

std::optional<Change> PatchPanel::CaretChange() const {
  PatchLine read = ReadPatchLine(editor_->LineAtCaret());
  if (read.kind != PatchLine::Kind::Change) return {};
  return Change{Offset{read.address}, std::move(read.oldBytes), std::move(read.newBytes)};
}

std::optional<Offset> PatchPanel::LineOf(Offset offset) {
  const wxBusyCursor wait;
  NoProgress unseen;
  const auto line = check_.Finish(unseen)->LineOf(offset);
  if (!line) return {};
  return static_cast<Offset>(*line);
}

void PatchPanel::GoToProblem(bool backwards) {
  const DocumentCheck* check = check_.Finish(bench_.status);
  if (!check) return;
  const auto line = check->NextProblem(editor_->CaretLine(), backwards);
  if (!line) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NoProblems)));
  editor_->GoToLine(*line);
}

// --- the document ---

// Every change, by the user or by the program, counts as unsaved; an empty text has nothing to lose.
void PatchPanel::TextChanged() {
  bench_.status.SetPanel(StatusBar::patchPanel, editor_->IsEmpty() ? "" : "P");
  check_.Restart();
}

void PatchPanel::AddPatch(const std::string& name, const std::string& body, bool announce) {
  editor_->Append(PatchBlock(name, body));
  if (announce)
    bench_.talk.Announce(Wx(bench_.texts.MsgS(Text::PatchAdded, name)), Wx(";" + name + "\n\n" + body));
}

void PatchPanel::AskAndAddPatch(Text command, Offset changedBytes, std::size_t all,
                                const std::function<std::vector<Change>()>& makeChanges) {
  if (changedBytes > patchLimit) return bench_.talk.ComplainOfSize(command, changedBytes, patchLimit);
  const Messages& texts = bench_.texts;
  const MergedPatch merged = MergeIntoPatch(editor_->Lines(), makeChanges());
  if (merged.taken == 0) return bench_.talk.Tell(Wx(texts.Msg(Text::PatchHoldsChanges)));
  if (!merged.replaced.empty() && !bench_.talk.Confirm(Wx(texts.Msg(Text::AskReplacePatchLines)))) return;
  std::optional<std::string> name;
  if (!merged.added.empty() && !(name = bench_.talk.Ask(Text::AskPatchName, NameFor(merged.added)))) return;
  const std::string body = PatchLines(merged.added);
  editor_->BeginUndoAction();
  editor_->ReplaceLines(merged.replaced);
  if (name) editor_->Append(PatchBlock(*name, body));
  editor_->EndUndoAction();

  std::string told = std::string(texts.Msg(Text::ChangesTakenLabel)) + std::to_string(merged.taken) + " / " +
                     std::to_string(all);
  if (!merged.replaced.empty())
    told.append("\n").append(texts.Msg(Text::PatchLinesReplacedLabel)) +=
        std::to_string(merged.replaced.size());
  if (name)
    bench_.talk.Announce(Wx(texts.MsgS(Text::PatchAdded, *name)), Wx(told + "\n\n;" + *name + "\n\n" + body));
  else
    bench_.talk.Tell(Wx(told));
}

void PatchPanel::ChangeAsCode_Click() {
  const auto change = CaretChange();
  if (!change) return bench_.talk.Complain(Text::NoChangeHere);
  ShowChangeAsCode(bench_, *change);
}

// --- its file ---

void PatchPanel::OpenPatch_Click() {
  if (const auto file = files_.Ask(Text::OpenPatch)) OpenPatch(*file);
}

void PatchPanel::OpenPatch(const std::filesystem::path& file) {
  if (WasChanged(bench_)) return;
  const auto text = files_.Read(file);
  if (!text) return;
  editor_->Open(text->document);
  files_.Opened(file, *text);
  bench_.status.SetPanel(StatusBar::patchPanel, wxString());
  bench_.frame.RenewMenu(*this);
  bench_.frame.ShowPanel(*this);
  ShowTotals();
}

bool PatchPanel::IsFromElsewhere() const {
  return !editor_->IsEmpty() && !files_.Path().empty() && files_.Path() != files_.OwnFile();
}

void PatchPanel::SavePatch() {
  files_.Save(editor_->Document());
  ShowTotals();
}

void PatchPanel::SavePatchAs_Click() {
  const std::filesystem::path offered = files_.Path().empty() ? files_.OwnFile() : files_.Path();
  auto file = bench_.talk.SaveFile(Text::SavePatchAs, PatchFilter(bench_.texts), offered);
  if (!file) return;
  if (!file->has_extension()) *file += ".qpt";
  files_.SaveTo(*file, editor_->Document());
  bench_.frame.RenewMenu(*this);
  ShowTotals();
}

void PatchPanel::ClosePatch_Click() {
  if (WasChanged(bench_)) return;
  Clear();
  bench_.status.SetPanel(StatusBar::patchPanel, wxString());
}

}  // namespace tarvelo
