#include "radio/earth.h"

#include <cmath>

namespace
{
/// What the refractive index gradient leaves of the earth's curvature, for a refractivity in
/// N-units at the surface.
double curvatureleft(double ns)
{
    return 1 - 0.04665 * std::exp(ns / 179.3);
}
} // namespace

double earthfactor(double ns)
{
    return standardearth * curvatureleft(ns);
}

double curvaturefactor(double ns)
{
    return 1 / curvatureleft(ns);
}

double bulge(double factor, double f, double d_km)
{
    return factor * (f * d_km) * ((1 - f) * d_km);
}

double fresnelradius(double f, double d_km, double f_mhz)
{
    return std::sqrt(f * (1 - f) * d_km / f_mhz) / 0.001827906;
}
