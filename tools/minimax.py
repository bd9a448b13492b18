"""Prints the polynomials of vmath/: minimax in relative error of the function they end up in, by Remez exchange.

Each kernel needs the part of its function that is left when the leading terms are taken off; the weight is what an
error of the polynomial becomes in the function. Needs the Python package mpmath.
"""
from mpmath import atan, cos, findroot, log, lu_solve, matrix, mp, mpf, pi, sin, sqrt, tan

mp.prec = 200


def remez(f, weight, terms, end):
    """Coefficients of `terms` powers of z on (0, end] and the largest |error * weight|."""
    points = [end * (1 - cos(pi * (2 * i + 1) / (2 * terms + 2))) / 2 for i in range(terms + 1)]
    grid = [end * (1 - cos(pi * (i + mpf(1) / 2) / 600)) / 2 for i in range(600)]
    fs, ws = [f(z) for z in grid], [weight(z) for z in grid]
    for _ in range(12):
        rows = matrix(terms + 1, terms + 1)
        for i, z in enumerate(points):
            for k in range(terms):
                rows[i, k] = z**k
            rows[i, terms] = (-1) ** i / weight(z)
        c = list(lu_solve(rows, matrix([f(z) for z in points])))[:terms]
        error = [(sum(a * z**k for k, a in enumerate(c)) - v) * w for z, v, w in zip(grid, fs, ws)]
        points, best = [], None
        for i, e in enumerate(error):               # the largest error of each run of one sign
            if best is not None and e * error[best] < 0:
                points.append(grid[best])
                best = i
            elif best is None or abs(e) > abs(error[best]):
                best = i
        points.append(grid[best])
        if len(points) != terms + 1:
            break
    return c, max(abs(e) for e in error)


def show(name, f, weight, terms, end):
    c, error = remez(f, weight, terms, mpf(end))
    print(f"{name}: relative error 2^{float(log(error, 2)):.1f}")
    print("  " + ", ".join(float(a).hex() for a in c))


def main():
    angle = mpf("0.785399")     # pi/4 and what rounding may add
    show("sine, r + r^3 S(r^2)", lambda z: (sin(sqrt(z)) / sqrt(z) - 1) / z,
         lambda z: z * sqrt(z) / sin(sqrt(z)), 6, angle**2)
    show("cosine, 1 - z/2 + z^2 C(z)", lambda z: (cos(sqrt(z)) - 1 + z / 2) / z**2,
         lambda z: z**2 / cos(sqrt(z)), 6, angle**2)

    def atanh2(z):
        return log((1 + sqrt(z)) / (1 - sqrt(z)))
    show("logarithm, 2s + s z L(z)", lambda z: (atanh2(z) / sqrt(z) - 2) / z,
         lambda z: z * sqrt(z) / atanh2(z), 7, ((sqrt(mpf(2)) - 1) / (sqrt(mpf(2)) + 1))**2)
    for terms in (11, 12):
        show(f"arc tangent, t + t z A(z), {terms} terms", lambda z: (atan(sqrt(z)) / sqrt(z) - 1) / z,
             lambda z: z * sqrt(z) / atan(sqrt(z)), terms, tan(pi / 8)**2)


if __name__ == "__main__":
    main()
