#pragma once

/// Earth factor of profile drawings without a radio link: bulge in m of a path of d km at fraction
/// f is this times f d (1 - f) d.
inline constexpr double standardearth = 1 / 12.75;

/// Earth factor for a surface refractivity in N-units.
double earthfactor(double ns);
/// Curvature factor of reports (effective over true earth radius).
double curvaturefactor(double ns);
/// Bulge of the earth in m at fraction f of a path of d km.
double bulge(double factor, double f, double d_km);
/// Radius of the first Fresnel zone in m at fraction f of a path of d km.
double fresnelradius(double f, double d_km, double f_mhz);
