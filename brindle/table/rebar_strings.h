// How grid cells understand a rebar text, such as a bar count, a grade and a diameter, or a bar
// size and a spacing. Which sizes and grades there are is the tool's knowledge: it derives from
// CGangJinBase (gang jin: reinforcing bar) and installs its object.
#pragma once

#include "brindle/platform/base/string.h"

namespace brindle {

// Family of a bar. The tool numbers its families; 0 is the default.
enum GANGJIN_TYPE : int { GANGJIN_DEFAULT = 0 };

class CGangJinBase {
 public:
  CGangJinBase() = default;
  CGangJinBase(const CGangJinBase&) = default;
  CGangJinBase& operator=(const CGangJinBase&) = default;

  // 1 if a bar of this diameter, millimetres, exists.
  virtual int FindZhiJin(int diameter, int param);
  // Parses a text whose family stands in m_nGangJinType. Returns the number of bar groups found, -1
  // for a text that can't be read. After a text was accepted, ToString(0) gives one that parses to
  // the same thing. Each parse starts from the defaults of a new object, since the caller has just
  // copied one over this one.
  virtual int FromString_KnowReinID(CString& text);
  // The canonical text; cells use mode 0.
  virtual CString ToString(int mode);
  // Parses and finds out the family itself, which it may store in m_nGangJinType. Results as above.
  virtual int FromString(CString& text);
  virtual ~CGangJinBase() = default;

  int m_nGangJinType = 0;  // family of the bar, a GANGJIN_TYPE
  int m_nParam = 2;        // the cell's m_nGangJinParam
  int m_nParam2 = 2;       // for the derived class
  int m_nValue1 = 0;       // parsed values
  int m_nValue2 = 100;
  int m_bSingle = 0;  // cleared for a cell that takes only a single bar
  int m_nValue3 = 0;
  int m_nValue4 = 100;
};

// Installs the one object of the process, null to remove it. It stays the tool's and outlives all
// grids. Without one, rebar cells are plain text and number cells. Windows' thread only: the object
// holds the result of the last parse.
void SetGangJinObj(CGangJinBase* object);
// The object installed, or null.
CGangJinBase* GetGangJinObj();

}  // namespace brindle
