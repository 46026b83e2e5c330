#include <brindle/brindle.h>

int main() {
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Write_Line(0, 0, 0, 100, 0, 0, 1.0, L"0", L"BYLAYER", L"BYLAYER");
  return dxf.Write_MemDxf_To_File2000(L"a.dxf") ? 0 : 1;
}
