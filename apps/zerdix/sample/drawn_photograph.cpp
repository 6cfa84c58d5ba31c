// SPDX-License-Identifier: MIT
// Sphere tracing of a handful of distance functions, lit by one window.

#include "drawn_photograph.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace zerdix::sample {

namespace {

struct vec {
    double x, y, z;
};

vec operator+(vec a, vec b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
vec operator-(vec a, vec b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
vec operator*(vec a, double f) {
    return {a.x * f, a.y * f, a.z * f};
}
double dot(vec a, vec b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double length(vec a) {
    return std::sqrt(dot(a, a));
}
vec normal(vec a) {
    return a * (1.0 / length(a));
}

double lattice(int x, int y, int z) {
    auto n = static_cast<std::uint32_t>(x) * 73856093U ^ static_cast<std::uint32_t>(y) * 19349663U ^
             static_cast<std::uint32_t>(z) * 83492791U;
    n = (n ^ (n >> 13)) * 1274126177U;
    return static_cast<double>((n ^ (n >> 16)) & 0xffff) / 65535.0;
}

double smooth(double t) {
    return t * t * (3 - 2 * t);
}

double mix(double a, double b, double t) {
    return a + (b - a) * t;
}

double noise(vec p) {
    const int x = static_cast<int>(std::floor(p.x));
    const int y = static_cast<int>(std::floor(p.y));
    const int z = static_cast<int>(std::floor(p.z));
    const double u = smooth(p.x - x), v = smooth(p.y - y), w = smooth(p.z - z);
    const auto row = [&](int dy, int dz) {
        return mix(lattice(x, y + dy, z + dz), lattice(x + 1, y + dy, z + dz), u);
    };
    return mix(mix(row(0, 0), row(1, 0), v), mix(row(0, 1), row(1, 1), v), w);
}

double cloud(vec p) {
    double sum = 0;
    double share = 0.5;
    for (int i = 0; i < 4; ++i, share /= 2, p = p * 2.1)
        sum += share * noise(p);
    return sum;
}

struct surface {
    double distance;
    double tone;  // how much light it gives back
    double gloss; // strength of its highlight
};

surface nearer(surface a, surface b) {
    return a.distance < b.distance ? a : b;
}

surface table(vec p) {
    const double grain = cloud({p.x * 1.2, p.y, p.z * 14.0 + 2.0 * noise({p.x, 0, p.z * 2})});
    return {p.y, 0.34 + 0.30 * grain, 0.15};
}

surface wall(vec p) {
    return {4.2 - p.z, 0.42 + 0.16 * cloud(p * 1.7), 0.0};
}

surface ball(vec p, vec centre, double radius, double tone, double gloss) {
    return {length(p - centre) - radius, tone, gloss};
}

// An orange: its skin has pores.
surface orange(vec p) {
    const vec centre{1.25, 0.72, 0.1};
    const double pores = 0.012 * noise((p - centre) * 26.0);
    return {length(p - centre) - 0.72 + pores, 0.62, 0.5};
}

// A jug: a turned profile of belly, neck and lip, hollow.
surface jug(vec p) {
    const double r = std::hypot(p.x + 0.75, p.z - 1.3);
    const double belly = 0.62 + 0.46 * std::sin(std::clamp(p.y, 0.0, 3.0) * 1.35 + 0.25);
    const double shell = std::abs(r - belly) - 0.05;
    const double ends = std::max(p.y - 2.75, -p.y);
    const double band = std::sin(p.y * 16.0) > 0.6 && p.y > 1.2 && p.y < 1.9 ? 0.25 : 0.0;
    return {std::max(shell * 0.6, ends), 0.80 - band, 0.7};
}

// A cloth that hangs over the table's edge in folds.
surface cloth(vec p) {
    const double fold = 0.07 * std::sin(p.x * 5.0 + std::sin(p.z * 3.0)) + 0.09;
    const double outside = std::max(std::abs(p.x + 1.9) - 0.9, std::abs(p.z + 0.9) - 0.55);
    const double weave = 0.08 * std::sin(p.x * 90) * std::sin(p.z * 90);
    return {std::max(p.y - fold, outside) * 0.7, 0.82 + weave, 0.0};
}

surface scene(vec p) {
    surface found = nearer(table(p), wall(p));
    found = nearer(found, jug(p));
    found = nearer(found, orange(p));
    found = nearer(found, cloth(p));
    found = nearer(found, ball(p, {0.35, 0.45, -1.0}, 0.45, 0.28, 0.9));
    return nearer(found, ball(p, {2.35, 0.38, -0.9}, 0.38, 0.88, 0.3));
}

vec slope(vec p) {
    const double e = 0.002;
    const auto at = [&](double x, double y, double z) { return scene(p + vec{x, y, z}).distance; };
    return normal(
        vec{at(e, 0, 0) - at(-e, 0, 0), at(0, e, 0) - at(0, -e, 0), at(0, 0, e) - at(0, 0, -e)});
}

// 1 in full light, 0 in full shade, with the soft edge that a wide window gives.
double lit(vec from, vec towards) {
    double light = 1;
    for (double t = 0.04; t < 7;) {
        const double d = scene(from + towards * t).distance;
        if (d < 0.001)
            return 0;
        light = std::min(light, 7 * d / t);
        t += std::clamp(d, 0.02, 0.3);
    }
    return smooth(light);
}

double occlusion(vec p, vec n) {
    double closed = 0;
    for (int i = 1; i <= 5; ++i)
        closed += (0.11 * i - scene(p + n * (0.11 * i)).distance) / (1 << i);
    return std::clamp(1 - 1.6 * closed, 0.0, 1.0);
}

double shade(vec p, vec eye_ray, const surface& at) {
    const vec window = normal({-3.0, 3.2, -2.2});
    const vec n = slope(p);
    const double sun = std::max(0.0, dot(n, window)) * lit(p + n * 0.01, window);
    const vec half = normal(window - eye_ray);
    const double highlight = at.gloss * std::pow(std::max(0.0, dot(n, half)), 60) * sun;
    const double sky = 0.22 + 0.12 * n.y;
    return at.tone * (1.25 * sun + sky * occlusion(p, n)) + highlight;
}

double look(vec eye, vec ray) {
    double t = 0;
    for (int step = 0; step < 240 && t < 20; ++step) {
        const surface at = scene(eye + ray * t);
        if (at.distance < 0.0008 * t)
            return shade(eye + ray * t, ray, at);
        t += at.distance * 0.8;
    }
    return 0.5;
}

unsigned char to_grey(double light) {
    const double exposed = 1 - std::exp(-1.7 * light);
    return static_cast<unsigned char>(std::lround(255 * std::pow(exposed, 1 / 1.6)));
}

} // namespace

grey_picture draw_photograph(int width, int height) {
    grey_picture picture{width, height, {}};
    picture.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const vec eye{0.3, 2.5, -6.4};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = (x + 0.5 - width / 2.0) / height;
            const double v = (height / 2.0 - y - 0.5) / height;
            picture.pixels.push_back(to_grey(look(eye, normal({u, v - 0.24, 1.25}))));
        }
    }
    return picture;
}

} // namespace zerdix::sample
