// Writers of a command script for a CAD program: each writes one command to an open stream, in
// single precision with two decimals. Lengths are drawing units; angles of texts are degrees. A
// failure to write shows in the stream's error state.
#pragma once

#include <cstdio>

namespace brindle {

void acad_circle(std::FILE* f, float x, float y, float r);
void acad_line(std::FILE* f, float x1, float y1, float x2, float y2);
// A text of height `h` that starts at (x, y); level, or turned by `angle_deg`.
void acad_text(std::FILE* f, float x, float y, const wchar_t* text, float h);
void acad_text_angle(std::FILE* f, float x, float y, const wchar_t* text, float h, float angle_deg);
void acad_3dface(std::FILE* f, float x1, float y1, float x2, float y2, float x3, float y3);
// A polyline `w` wide: of two points, or of n points (none: nothing is written).
void acad_pline(std::FILE* f, float x1, float y1, float x2, float y2, float w);
void acad_pline_mut_p(std::FILE* f, int n, const float* x, const float* y, float w);
// The arc about (cx, cy) from the first point counter-clockwise towards the second.
void acad_arc(std::FILE* f, float cx, float cy, float x1, float y1, float x2, float y2);
// Settings. The layer command asks on until an empty line, so it gets one.
void acad_layer(std::FILE* f, const wchar_t* option, const wchar_t* name);
void acad_color(std::FILE* f, const wchar_t* color);
void acad_zoom(std::FILE* f, const wchar_t* option);

// A text beside the segment from point 1 to point 2, at i/n of its length, at the distance
// side * h * 1.2 plus 0.2 * h in the direction of side: to the left for a positive side, to the
// right for a negative one, on the line for 0. An n of 0 means the start. The text runs along the
// line; the vertical one across it, turned by 90 degrees more.
void acad_text_along_line(std::FILE* f, float x1, float y1, float x2, float y2, int n, int i,
                          const wchar_t* text, float h, float side);
void acad_text_vertical_line(std::FILE* f, float x1, float y1, float x2, float y2, int n, int i,
                             const wchar_t* text, float h, float side);
// The same for the arc about (cx, cy) that starts at point 1 and runs counter-clockwise to the
// direction of point 2: at i/n of its angle, the radius less that distance, the text along the
// arc's tangent.
void acad_text_along_arc(std::FILE* f, float cx, float cy, float x1, float y1, float x2, float y2,
                         int n, int i, const wchar_t* text, float h, float side);

}  // namespace brindle
