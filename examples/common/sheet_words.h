// What an example writes into the title block and the countersign block of its sheet.
#pragma once

#include <string>

namespace brindle::examples {

// Empty words leave their cells blank.
struct SheetWords {
  std::wstring project, number, date, axis;
  std::wstring lead, designer, auditor, manager, checker, approver;
  std::wstring architect, engineer, services;  // countersigned by
};

}  // namespace brindle::examples
