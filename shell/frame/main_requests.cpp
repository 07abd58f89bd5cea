// What panels ask of the window.
#include <utility>

#include "code/functions_explorer.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/code/code_panel.h"
#include "shell/code/references_panel.h"
#include "shell/compare/compare_panel.h"
#include "shell/frame/main.h"
#include "shell/frame/what_lies_window.h"
#include "shell/hex/hex_panel.h"
#include "shell/info/info_panel.h"
#include "shell/list/explorer_panel.h"
#include "shell/patch/patch_panel.h"
#include "shell/search/hits_panel.h"

namespace tarvelo {

void Main::ShowBl(Offset start, Offset size) {
  if (!IsInside(start)) return;
  if (!tools_.ShowBl(document_.Path(), start, size)) ShowHex(start, size);
}

bool Main::IsInside(Offset offset) {
  const bool isInside = offset >= 0 && offset <= document_.Image().ffEnd();
  if (!isInside) talk_.Complain(Text::DataOutsideImage);
  return isInside;
}

void Main::ShowHex(Offset start, Offset size) {
  if (!IsInside(start)) return;
  Jump([&] {
    panels_->ShowPanel(*hex_);
    hex_->Go(start, size);
  });
}

void Main::ShowCode(Offset start, Offset size) {
  if (!IsInside(start)) return;
  if (!document_.Image().PageMode()) return talk_.Complain(Text::NoCodeInLargeImage);
  Jump([&] {
    panels_->ShowPanel(*code_);
    code_->Go(start, size);
  });
}

void Main::ShowReferences(Offset target) {
  if (!IsInside(target)) return;
  if (!document_.Image().PageMode()) return talk_.Complain(Text::NoCodeInLargeImage);
  Jump([&] {
    references_->Show(target);
    panels_->ShowPanel(*references_);
  });
}

void Main::ShowFunctions(Offset offset) {
  const auto functions = document_.Functions(*status_);
  const Function* function = functions->At(offset);
  Panel& list = *panels_->Of(PanelId(functionsExplorer));
  Jump([&] {
    panels_->ShowPanel(list);
    if (function) list.Return(function - functions->All().data());
  });
}

VisitedPlace Main::Here() const {
  const Panel* visible = panels_->Visible();
  return visible ? VisitedPlace{visible->Traits().menuEntry, visible->Here()} : VisitedPlace();
}

void Main::Jump(const Command& go) {
  const VisitedPlace from = Here();
  go();
  history_.Jump(from, Here());
}

void Main::Revisit(const std::optional<VisitedPlace>& place) {
  Panel* panel = place ? panels_->Of(place->panel) : nullptr;
  if (!panel) return;
  panels_->ShowPanel(*panel);
  panel->Return(place->at);
}

void Main::ShowInPatch(Offset offset) {
  const auto line = patch_->LineOf(offset);
  if (!line) return talk_.Complain(Text::NotInPatch);
  Jump([&] {
    panels_->ShowPanel(*patch_);
    patch_->Return(*line);
  });
}

void Main::ShowPanel(Panel& panel) {
  Jump([&] { panels_->ShowPanel(panel); });
}

void Main::ShowHits(const std::string& pattern) { hits_->Search(pattern); }

void Main::ShowWhatLies(Offset offset) {
  if (!IsInside(offset)) return;
  if (!whatLies_)
    whatLies_ = new WhatLiesWindow(
        this, bench_, [this](const Explorer& explorer, std::size_t record) { ShowRecord(explorer, record); });
  whatLies_->ShowPlace(offset);
}

void Main::ShowRecord(const Explorer& explorer, std::size_t record) {
  Jump([&] {
    auto& panel = dynamic_cast<ExplorerPanel&>(*panels_->Of(PanelId(explorer)));
    panels_->ShowPanel(panel);
    panel.ShowRecord(record);
  });
}

void Main::FollowInHex(Offset start, Offset size) {
  if (panels_->Visible() == hex_) ShowHex(start, size);
}

OtherDump Main::Other() const { return compare_->Other(); }

void Main::AddInformation(const std::string& lines) { info_->AppendText(Wx(lines)); }

void Main::AddInformation(const std::string& name, const std::string& body) { info_->AddText(name, body); }

void Main::AddPatch(Text command, Offset changedBytes, std::size_t all,
                    const std::function<std::vector<Change>()>& makeChanges) {
  patch_->AskAndAddPatch(command, changedBytes, all, makeChanges);
}

void Main::OpenPatch(const std::filesystem::path& file) { patch_->OpenPatch(file); }

}  // namespace tarvelo
