#include "document/document.h"

#include <utility>

#include "code/functions_explorer.h"
#include "document/dpp_text.h"
#include "document/joint_search.h"
#include "document/what_lies.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

std::size_t CountListed(const Explorer& explorer, const Findings& found) {
  const std::size_t count = explorer.count(found);
  std::size_t deleted = 0;
  for (std::size_t record = 0; explorer.hasDeleted && record < count; ++record)
    deleted += explorer.item(found, record).isDeleted;
  return count - deleted;
}

}  // namespace

// --- the dump ---

void Document::Open(Fullflash image, const std::filesystem::path& path) {
  Close();
  dump_.image = std::move(image);
  dump_.info = Identify(dump_.image);
  SetPath(path);
  fileName_ = ToUpper(fileName_);
  fileDir_ = path.parent_path();
}

void Document::Close() {
  Forget();
  edits_.Clear();
  dump_.image = Fullflash();
  dump_.info = Identification();
  dump_.names = Names();
  dpps_ = DppPages();
}

// --- its names ---

void Document::SetPath(const std::filesystem::path& chosen) {
  path_ = chosen;
  fileName_ = PathText(chosen);
  fileStem_ = std::filesystem::path(chosen).replace_extension();
}

std::filesystem::path Document::Beside(std::string_view ending) const {
  std::filesystem::path file = fileStem_;
  return file += PathOf(ending);
}

// --- the user's names for places ---

void Document::ReadNames() {
  dump_.names = Names();
  dpps_ = DppPages();
  dump_.names = tarvelo::ReadNames(path_);
  dpps_ = DppsOf(dump_.names);
  Call(nameWatches_);
}

void Document::ChangeNames(const std::function<void(Names& names)>& change) {
  Names names = tarvelo::ReadNames(path_);
  const std::string before = names.Text();
  change(names);
  if (names.Text() != before) ReplaceFile(NamesFile(path_), names.Text());
  dump_.names = std::move(names);
  Call(nameWatches_);
}

void Document::NamePlace(Offset offset, std::string_view name, std::string_view comment) {
  const Name one{dump_.image.PhoneAddress(offset), name, comment};
  NamePlaces({&one, 1});
}

void Document::NamePlaces(std::span<const Name> named) {
  ChangeNames([named](Names& names) { names.Set(named); });
}

void Document::TakeNamesAlong() {
  if (FileExist(NamesFile(path_)))
    ReadNames();
  else if (!dump_.names.Text().empty())
    ReplaceFile(NamesFile(path_), dump_.names.Text());
}

void Document::StateDpps(const DppPages& pages) {
  dpps_ = pages;
  Call(nameWatches_);  // whether or not the file can be written
  ChangeNames([&pages](Names& names) { KeepDpps(pages, names); });
}

Document::Watch Document::OnNames(std::function<void()> named) { return Add(nameWatches_, std::move(named)); }

// --- edits ---

void Document::Write(Offset offset, Bytes bytes) {
  if (edits_.Write(dump_.image, offset, bytes)) Changed();
}

void Document::Write(std::span<const Change> changes) {
  if (edits_.Write(dump_.image, changes)) Changed();
}

std::optional<Region> Document::Undo() {
  const auto region = edits_.Undo(dump_.image);
  if (region) Changed();
  return region;
}

std::optional<Region> Document::Redo() {
  const auto region = edits_.Redo(dump_.image);
  if (region) Changed();
  return region;
}

Document::Watch Document::OnChange(std::function<void()> changed) {
  return Add(changeWatches_, std::move(changed));
}

Document::Watch Document::OnModel(std::function<void()> learnt) {
  return Add(modelWatches_, std::move(learnt));
}

Document::Watch Document::Add(Watches& watches, std::function<void()> call) {
  auto watch = std::make_shared<const std::function<void()>>(std::move(call));
  watches.push_back(watch);
  return watch;
}

// A called watcher may end its own watch or another's.
void Document::Call(Watches& watches) {
  std::erase_if(watches, [](const auto& watch) { return watch.expired(); });
  for (const auto& watch : std::vector(watches))
    if (const Watch alive = watch.lock()) (*alive)();
}

void Document::Changed() {
  Forget();
  Call(changeWatches_);
}

// --- its findings ---

void Document::Forget() {
  found_.clear();
  map_.reset();
}

const Findings& Document::Find(const Explorer& explorer, Progress& progress) {
  const auto known = found_.find(&explorer);
  if (known != found_.end()) return known->second.findings;
  Found made{explorer.search(dump_, progress)};
  const Findings& found = found_.emplace(&explorer, std::move(made)).first->second.findings;
  if (explorer.model && dump_.info.Model.empty()) {
    dump_.info.Model = explorer.model(dump_, found);
    if (!dump_.info.Model.empty()) Call(modelWatches_);
  }
  return found;
}

const Findings* Document::Known(const Explorer& explorer) const {
  const auto known = found_.find(&explorer);
  return known == found_.end() ? nullptr : &known->second.findings;
}

std::optional<std::size_t> Document::KnownCount(const Explorer& explorer) const {
  const auto known = found_.find(&explorer);
  if (known == found_.end()) return {};
  const Found& found = known->second;
  if (!found.listed) found.listed = CountListed(explorer, found.findings);
  return found.listed;
}

const Layers* Document::KnownLayers(const Explorer& explorer) const {
  const auto known = found_.find(&explorer);
  if (known == found_.end()) return nullptr;
  auto& layers = known->second.layers;
  if (!layers) layers = std::make_unique<const Layers>(explorer, dump_, known->second.findings);
  return layers.get();
}

std::shared_ptr<const FunctionList> Document::Functions(Progress& progress) {
  (void)Find(functionsExplorer, progress);
  return KnownFunctions();
}

std::shared_ptr<const FunctionList> Document::KnownFunctions() const {
  const Findings* found = Known(functionsExplorer);
  if (!found) return std::make_shared<const FunctionList>();
  const auto kept = std::make_shared<const Findings>(*found);
  return {kept, &kept->As<FunctionList>()};
}

std::shared_ptr<const DumpMap> Document::Map(Progress& progress) {
  if (map_) return map_;
  const JointSearch joint(dump_, NotSearchedYet(*this), progress);
  map_ = std::make_shared<const DumpMap>(
      MapDump(dump_, [&](const Explorer& explorer) -> const Findings& { return Find(explorer, progress); }));
  return map_;
}

}  // namespace tarvelo
