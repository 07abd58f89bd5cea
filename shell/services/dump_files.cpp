#include "shell/services/dump_files.h"

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

void SaveList(Workbench& bench, const TableRows& rows, char letter) {
  const std::filesystem::path file = bench.document.Beside(std::string("_") + letter + ".txt");
  ReplaceFile(file, [&](const TextSink& write) { WriteTabSeparated(rows, CrLf, write); });
  bench.document.SetFileName(PathText(file));
  bench.talk.Tell(Text::ListSaved, file);
}

}  // namespace tarvelo
