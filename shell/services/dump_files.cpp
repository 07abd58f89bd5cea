#include "shell/services/dump_files.h"

#include <utility>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {

wxString DumpFilter(const Messages& texts) {
  return Wx(texts.Msg(Text::Fullflash)) + " (*.bin,*.fls)|*.bin;*.fls|" + Wx(texts.Msg(Text::AllFiles)) +
         "|*.*";
}

std::optional<std::filesystem::path> AskForDump(Workbench& bench, Text title,
                                                const std::filesystem::path& current) {
  return bench.talk.OpenFile(title, DumpFilter(bench.texts), current);
}

std::optional<Fullflash> ReadDump(Workbench& bench, const std::filesystem::path& path) {
  Fullflash image;
  if (bench.talk.fOpenErr([&] { image = Fullflash::Load(path, bench.status); })) return {};
  if (image.IsOpen()) return image;
  bench.talk.Complain(Wx(bench.texts.Msg(Text::FileEmpty)) + "\n\n" + WxPath(path));
  return {};
}

std::optional<Dump> AskForOtherVersion(Workbench& bench, Text title, std::filesystem::path& path) {
  const Document& document = bench.document;
  const auto chosen = AskForDump(bench, title, document.Path());
  if (!chosen) return {};
  path = *chosen;
  auto image = ReadDump(bench, path);
  if (!image) return {};
  if (!image->PageMode() || !document.Image().PageMode()) {
    bench.talk.Complain(Text::NoCodeInLargeImage);
    return {};
  }
  Dump other{std::move(*image), {}, {}};
  other.info = Identify(other.image);
  if (bench.talk.fOpenErr([&] { other.names = ReadNames(path); })) return {};
  const bool isAlike =
      other.info.Model == document.Info().Model && other.image.ffEnd() == document.Image().ffEnd();
  const Messages& texts = bench.texts;
  if (!isAlike &&
      !bench.talk.Confirm(Wx(texts.Msg(Text::OtherPhoneOrSize)) + "\n" + Wx(texts.Msg(Text::AskContinue))))
    return {};
  return other;
}

void SaveList(Workbench& bench, const TableRows& rows, std::size_t all, char letter) {
  if (rows.count == 0) return bench.talk.Complain(Text::NoDataToSave);
  const std::filesystem::path file = bench.document.Beside(std::string("_") + letter + ".txt");
  ReplaceFile(file, [&](const TextSink& write) { WriteTabSeparated(rows, CrLf, write); });
  bench.document.SetFileName(PathText(file));
  wxString text = Wx(bench.texts.Msg(Text::ListSaved));
  if (rows.count < all)
    text = Wx(bench.texts.Msg(Text::RowsSavedLabel)) << rows.count << " / " << all << "\n" << text;
  bench.talk.Tell(text, file);
}

}  // namespace tarvelo
