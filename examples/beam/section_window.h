// The input window of a beam section: grids, the section's figure, and what the design lacks.
#pragma once

#include <memory>
#include <string>

#include "brindle/platform/window/button.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/static.h"
#include "examples/beam/section_grids.h"

namespace brindle {
class CBase_SGT;
}

namespace brindle::beam {

// Shows section 1-1 of a design as large as its area allows.
class FigureView : public CWnd {
 public:
  FigureView();
  ~FigureView() override;

  // Null: there is no design to show.
  void show(const SectionInput& input, const SectionDesign* design);

 protected:
  void OnPaint() override;

 private:
  std::unique_ptr<CBase_SGT> figure_;
};

// A change in a grid calculates anew at once. OK writes the project file and closes; when the file
// can't be written it stays open. Only one may be there at a time: its rebar object is the
// process's.
class SectionWindow : public CDialog {
 public:
  // The file named, which needn't be there yet; an empty path is asked for at OK.
  SectionWindow(const SectionInput* input, const std::wstring& path);
  ~SectionWindow() override;

  BOOL OnInitDialog() override;
  void OnOK() override;

  SectionForm form;
  SectionGrid section{form};
  BarsGrid bars{form};
  CasesGrid cases{form};

 private:
  void place_grids();
  void place_controls();
  void calculate();
  void show_results();
  void edit_words();

  std::wstring path_;
  RebarText rebar_;
  FigureView figure_;
  CStatic verdict_;
  CButton words_, ok_, cancel_;
};

}  // namespace brindle::beam
