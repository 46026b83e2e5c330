// A dimension style: the classic dimension variables under their own names.
#pragma once

#include "brindle/dxf/acad_table.h"

namespace brindle::Varnholt {

class ACAD_DIMSTYLE : public ACAD_TABLE {
 public:
  ACAD_DIMSTYLE();

  // The handle of the text style (340) isn't read: the text style of a read dimension style stays
  // "STANDARD".
  int read_from(DxfPairReader& reader) override;
  // Writes the handle of the text style when the record knows its document and the style is there.
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;
  // Every field but the handle, in the order of writing, the name of the text style last.
  void exchange(FieldExchange& with);

  WText<100> m_szName;
  int m_nFlags;
  WText<100> DIMPOST;       // prefix and suffix of the text
  WText<100> DIMAPOST;      // the same for alternate units
  WText<100> DIMBLK;        // arrow block
  WText<100> DIMBLK1;       // first arrow block
  WText<100> DIMBLK2;       // second arrow block
  double DIMSCALE;          // overall scale
  double DIMASZ;            // arrow size
  double DIMEXO;            // gap from the origin to the extension line
  double DIMDLI;            // spacing of stacked dimension lines
  double DIMEXE;            // extension beyond the dimension line
  double DIMRND;            // rounding of the value
  double DIMDLE;            // dimension line beyond the extension lines
  double DIMTP;             // plus tolerance
  double DIMTM;             // minus tolerance
  double DIMTXT;            // text height
  double DIMCEN;            // size of centre marks
  double DIMTSZ;            // tick size
  double DIMALTF;           // factor of alternate units
  double DIMLFAC;           // factor of measured lengths
  double DIMTVP;            // vertical position of the text
  double DIMTFAC;           // height factor of tolerances
  double DIMGAP;            // gap around the text
  int DIMTOL;               // tolerances are appended
  int DIMLIM;               // limits are shown
  int DIMTIH;               // text inside is horizontal
  int DIMTOH;               // text outside is horizontal
  int DIMSE1;               // no first extension line
  int DIMSE2;               // no second extension line
  int DIMTAD;               // text above the dimension line
  int DIMZIN;               // treatment of zeros
  int DIMALT;               // alternate units are shown
  int DIMALTD;              // decimals of alternate units
  int DIMTOFL;              // a dimension line is forced
  int DIMSAH;               // two arrow blocks
  int DIMTIX;               // text is forced inside
  int DIMSOXD;              // no dimension line outside
  int DIMCLRD;              // colour of the dimension line
  int DIMCLRE;              // colour of extension lines
  int DIMCLRT;              // colour of the text
  int DIMUNIT;              // unit format
  int DIMDEC;               // decimals
  int DIMTDEC;              // decimals of tolerances
  int DIMALTU;              // unit format of alternate units
  int DIMALTTD;             // decimals of alternate tolerances
  int DIMAUNIT;             // format of angles
  int DIMJUST;              // position of the text along the line
  int DIMSD1;               // no first half of the dimension line
  int DIMSD2;               // no second half of the dimension line
  int DIMTOLJ;              // vertical place of tolerances
  int DIMTZIN;              // zeros of tolerances
  int DIMALTZ;              // zeros of alternate units
  int DIMALTTZ;             // zeros of alternate tolerances
  int DIMFIT;               // fit of text and arrows
  int DIMUPT;               // the user places the text
  WText<100> m_szTxtStyle;  // name of the text style; not in the file as a name
};

}  // namespace brindle::Varnholt
