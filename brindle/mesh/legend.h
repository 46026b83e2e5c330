// The font of legends, a setting of the process.
#pragma once

namespace brindle {

// The file name tells the face: "simsun.ttf" (at the start), "simhei.ttf", "simkai.ttf",
// "simfang.ttf", in any case. Another name, or null, stands for the first.
void SetLegendFontFile(const wchar_t* file);
// "宋体", "黑体", "楷体_GB2312" or "仿宋_GB2312".
const wchar_t* GetLegendFontFace();

}  // namespace brindle
