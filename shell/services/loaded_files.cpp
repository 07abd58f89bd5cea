#include "shell/services/loaded_files.h"

#include <algorithm>

#include "core/file.h"
#include "shell/base/strings.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

// Whether two changes give a shared byte different values.
bool Differ(const Change& a, const Change& b) {
  const Offset from = std::max(a.offset, b.offset);
  const Offset end = std::min(a.offset + a.Size(), b.offset + b.Size());
  return from < end &&
         !std::equal(a.newBytes.begin() + (from - a.offset), a.newBytes.begin() + (end - a.offset),
                     b.newBytes.begin() + (from - b.offset));
}

}  // namespace

wxString WrongSizeText(const Messages& messages, const std::filesystem::path& file, std::uint64_t fileSize,
                       Offset placeSize, const wxString& whose) {
  wxString text = Wx(messages.MsgS(Text::WrongFileSize, PathText(file.filename())));
  text << "\n" << Wx(messages.Msg(Text::FileSizeLabel)) << fileSize;
  text << "\n" << Wx(messages.Msg(Text::SizeInFullflashLabel)) << placeSize << " (" << whose << ")";
  return text;
}

void LoadedFiles::Add(const std::filesystem::path& file, Change change) {
  if (Contradicts(change)) return Refuse(file, Wx(bench_.texts.Msg(Text::FilesContradict)));
  ++loaded_;
  // A file that changes nothing is not written: that would undo another file's change of bytes that both
  // cover.
  if (change.oldBytes == change.newBytes) return;
  changes_.push_back(std::move(change));
  differing_ << WxPath(file.filename()) << "\n";
}

bool LoadedFiles::Contradicts(const Change& change) const {
  return change.oldBytes != change.newBytes &&
         std::ranges::any_of(changes_, [&](const Change& other) { return Differ(change, other); });
}

void LoadedFiles::Refuse(const wxString& text) {
  ++refused_;
  refusals_ << text << "\n";
}

void LoadedFiles::Refuse(const std::filesystem::path& file, const wxString& reason) {
  Refuse(WxPath(file.filename()) + ": " + reason);
}

void LoadedFiles::Finish(Text command, Text done, const std::filesystem::path& pattern) {
  const Messages& texts = bench_.texts;
  if (loaded_ + refused_ == 0)
    return bench_.talk.Complain(Wx(texts.MsgS(Text::FileNotFound, PathText(pattern))));
  if (!changes_.empty()) bench_.document.Write(changes_);
  wxString text;
  if (loaded_ > 0) text << Wx(texts.Msg(done)) << "\n" << WxPath(pattern.parent_path()) << "\n\n";
  text << Wx(texts.Msg(Text::FilesLoadedLabel)) << loaded_ << "\n";
  text << Wx(texts.Msg(Text::FilesDifferingLabel)) << changes_.size() << "\n" << differing_;
  if (refused_ > 0) text << "\n" << Wx(texts.Msg(Text::FilesNotLoadedLabel)) << refused_ << "\n" << refusals_;
  bench_.talk.Announce(Wx(texts.Msg(command)), text);
}

}  // namespace tarvelo
