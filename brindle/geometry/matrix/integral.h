// CQxIntegral: integrates a function that a derived class supplies.
#pragma once

namespace brindle::QxJGFunEx {

class CQxIntegral {
 public:
  virtual ~CQxIntegral() = default;

  // The accuracy, kept as its absolute value (NaN as 0), and the limit of stages, of which at most
  // 25 are used.
  void SetIntParameter(double eps, int n);
  // The integral from a to b with these.
  double Int(double a, double b);
  // Romberg's scheme: the interval is halved from stage to stage and the estimates extrapolated by
  // powers of 4. It ends when two stages (not before the fourth) differ by no more than `eps`, an
  // absolute value, or at the limit; the last estimate is returned. A limit below 1 counts as 1.
  double Romberg(double a, double b, double eps);

 protected:
  // The function to integrate.
  virtual double Fun(double x) = 0;

 private:
  double m_dEps = 1e-6;
  int m_nLimit = 20;
};

}  // namespace brindle::QxJGFunEx
