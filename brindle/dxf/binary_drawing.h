// The binary drawing file: a whole drawing in memory mode for fast reloading.
#pragma once

namespace brindle {

class DXF;

// Writes the drawing's tables, blocks and entities; handles aren't kept. 1; 0 with nothing told
// when the path can hold no file, 0 with a message (301) when the file can't be completed. The old
// file stays whole then.
int SaveDxb(DXF* drawing, const wchar_t* path);

// Replaces the drawing by a file's, in memory mode. bDouble 1: the form that SaveDxb writes, with
// numbers of 8 bytes; 0: the older form with numbers of 4 bytes. The flag has to match the file,
// which doesn't tell its width. 1; 0 when the file can't be opened, 0 with a message (301) and the
// drawing as it was when it isn't a binary drawing. A file that ends early gives what it holds.
int LoadDxb(DXF* drawing, const wchar_t* path, int bDouble);

}  // namespace brindle
