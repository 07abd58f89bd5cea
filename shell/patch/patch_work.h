// Commands for whole patches.
#pragma once

namespace tarvelo {

class PatchEditor;
class PatchFiles;
struct Workbench;

// Asks for a patch file and adds it to the document. Reports how many lines were added, and lists the lines
// that contradict others by place.
void AddPatchFile_Click(Workbench& bench, PatchFiles& files, PatchEditor& editor);

// Writes each part of the document to a file beside the dump, named after the part.
void SplitPatch_Click(Workbench& bench, PatchFiles& files, const PatchEditor& editor);

}  // namespace tarvelo
