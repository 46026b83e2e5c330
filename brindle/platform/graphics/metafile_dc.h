// CMetaFileDC, the framework's device context that writes a metafile. It is a kind of its own: the
// canvas doesn't clip on it, and entities are black on it unless their colours are asked for.
#pragma once

#include <memory>

#include "brindle/platform/graphics/dc.h"

namespace brindle {

// Drawing starts with a Create... function and ends with the Close... function of its kind; a
// context that is destroyed before leaves no file.
class CMetaFileDC : public CDC {
 public:
  CMetaFileDC();
  // Draws on `device`, which must outlive the context and is finished by its owner.
  explicit CMetaFileDC(PaintDevice& device);
  ~CMetaFileDC() override;

  // A placeable metafile of `size` device units, an empty one for the box around all that is drawn;
  // `dpi` is device units an inch. FALSE for a null or empty path, and while another is open.
  BOOL Create(LPCTSTR path, SIZE size = {0, 0}, double dpi = 96);
  // An enhanced metafile. `bounds` is the picture in hundredths of a millimetre (null: the box
  // around all that is drawn); it starts at device point 0 wherever it stands. `reference` (null:
  // a screen of 96 dpi) tells the size of a device unit. `description` is
  // "program\0picture\0\0", or null.
  BOOL CreateEnhanced(CDC* reference, LPCTSTR path, LPCRECT bounds, LPCTSTR description);
  // Draws on a file of any kind.
  BOOL Create(std::unique_ptr<FileDevice> file);

  // Ends the file. FALSE when it isn't open or couldn't be written.
  BOOL Close();
  BOOL CloseEnhanced() { return Close(); }

 private:
  std::unique_ptr<FileDevice> file_;
};

}  // namespace brindle
