// Integration, polynomial interpolation and root finding.
#pragma once

namespace brindle {

// The n-th stage of the extended trapezoid rule for the integral of f from a to b. Stage 1 (and any
// n below it) is the trapezoid of the two ends; stage n adds 2^(n-2) points to what the stage
// before has left in a variable of this module. So call the stages in their order; not re-entrant:
// a function may not be integrated while another one is, nor f integrate itself, nor two threads at
// once. Stages beyond 31 cost as much as stage 31.
float trapzd(float (*f)(float), float a, float b, int n);

// The value at x of the polynomial through the n points xa[0..n-1], ya[0..n-1] in *y and the size
// of the last correction, an estimate of its error, in *dy; Neville's scheme. Two equal xa divide
// by zero and give what isn't finite; n below 1 gives 0 and 0.
void polint(const float* xa, const float* ya, int n, float x, float* y, float* dy);
void polint(const double* xa, const double* ya, int n, double x, double* y, double* dy);

// The integral of f from a to b by Romberg's method over the last five stages of trapzd. It stops
// at an estimated error of 0.001 of the value, or when the value is smaller than 0.001: the
// precision is 0.1 percent by choice, somewhat less for a function with kinks. After 20 stages
// tells so (code 0) and returns the last value. Not re-entrant, as trapzd.
float integeration_romberg(float (*f)(float), float a, float b);

// A root of f between a and b by halving, to the last digit. An end that is a root is returned. If
// f has the same sign at both ends, or isn't a number there, tells "No result in Two_divide_equ !"
// as error 301 and returns 0.
float two_divide_equ(float (*f)(float), float a, float b);
double two_divide_equ(double (*f)(double), double a, double b);

}  // namespace brindle
