// Local frames in space. A `lamda` is a 3 x 3 direction-cosine matrix, row-major, whose rows are
// the local axes x, y, z in global components: it takes global components to local ones.
// Right-handed; angles are radians.
#pragma once

namespace brindle {

// The frame whose x axis runs along `vx` and whose xy plane holds `vxy`, on the side of positive y:
// 1. When one of them has no length or they are parallel: 0, and lamda is the unit matrix.
int form_vecter_lamda(const float* vx, const float* vxy, float* lamda);
int form_vecter_lamda(const double* vx, const double* vxy, double* lamda);

// The frame that comes out of the global one by three turns: by `a` about z, then by `b` about the
// new x, then by `c` about the new z.
void form_euler_lamda(float a, float b, float c, float* lamda);
void form_euler_lamda(double a, double b, double c, double* lamda);

// The three turns that make a frame: a and c in (-pi, pi], b in [0, pi]. Where the z axes coincide
// or are opposite only one of a and c is determined, and c is 0.
void get_euler_angle(const float* lamda, float* a, float* b, float* c);
void get_euler_angle(const double* lamda, double* a, double* b, double* c);

// The frame of a straight bar (ZhiGan) from p1 to p2: x along the bar, y horizontal, z the one that
// looks up, then all turned about the bar by `angle`. A bar along the global z has y along the
// global Y. Returns 1; 0 for a bar without length, and lamda is the unit matrix.
int form_zhigan_lamda(const float* p1, const float* p2, float angle, float* lamda);
int form_zhigan_lamda(const double* p1, const double* p2, double angle, double* lamda);

// Global components of a vector from its local ones; both may be the same array.
void xyz_to_XYZ(const float* lamda, const float* local, float* global);
void xyz_to_XYZ(const double* lamda, const double* local, double* global);

}  // namespace brindle
