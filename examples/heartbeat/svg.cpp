// The writer of SVG. Paths hold tenths of a pixel and go from point to point by differences, which halves the file.
#include "svg.hpp"

#include <cmath>
#include <cstdarg>
#include <cstdio>

namespace heartbeat {
namespace {

std::string escaped(const std::string& text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      default:
        out += c >= ' ' && c <= '~' ? c : '?';
    }
  }
  return out;
}

long tenths(double pixels) { return std::lround(10 * pixels); }

// A number of tenths, without a zero before the point or behind it.
void append_tenths(std::string& out, long value) {
  char digits[32];
  const long whole = std::labs(value) / 10, rest = std::labs(value) % 10;
  if (rest == 0) {
    std::snprintf(digits, sizeof digits, "%s%ld", value < 0 ? "-" : "", whole);
  } else if (whole == 0) {
    std::snprintf(digits, sizeof digits, "%s.%ld", value < 0 ? "-" : "", rest);
  } else {
    std::snprintf(digits, sizeof digits, "%s%ld.%ld", value < 0 ? "-" : "", whole, rest);
  }
  out += digits;
}

}  // namespace

Svg::Svg(int width, int height, const char* style) {
  add("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" viewBox=\"0 0 %d %d\">\n", width, height,
      width, height);
  add("<style>%s</style>\n", style);
}

void Svg::add(const char* format, ...) {
  va_list measured, written;
  va_start(measured, format);
  va_copy(written, measured);
  const int size = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  if (size > 0) {
    const std::size_t end = body_.size();
    body_.resize(end + static_cast<std::size_t>(size) + 1);
    std::vsnprintf(&body_[end], static_cast<std::size_t>(size) + 1, format, written);
    body_.pop_back();  // the zero at the end
  }
  va_end(written);
}

void Svg::rect(Point corner, double width, double height, const char* style_class) {
  add("<rect class=\"%s\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\"/>\n", style_class, corner.x, corner.y,
      width, height);
}

void Svg::line(Point from, Point to, const char* style_class) {
  add("<line class=\"%s\" x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", style_class, from.x, from.y, to.x,
      to.y);
}

void Svg::text(Point at, const std::string& text, const char* style_class) {
  add("<text class=\"%s\" x=\"%.1f\" y=\"%.1f\">%s</text>\n", style_class, at.x, at.y, escaped(text).c_str());
}

void Svg::turned_text(Point at, const std::string& text, const char* style_class) {
  add("<text class=\"%s\" transform=\"translate(%.1f %.1f) rotate(-90)\">%s</text>\n", style_class, at.x, at.y,
      escaped(text).c_str());
}

void Svg::path(const std::vector<Point>& points, const char* style_class) {
  add("<path class=\"%s\" d=\"", style_class);
  long x = 0, y = 0;
  const char* step = "M";
  for (const Point& p : points) {
    body_ += step;
    append_tenths(body_, tenths(p.x) - x);
    body_ += ',';
    append_tenths(body_, tenths(p.y) - y);
    x = tenths(p.x);
    y = tenths(p.y);
    step = step[0] == 'M' ? "l" : " ";
  }
  body_ += "\"/>\n";
}

void Svg::dots(const std::vector<Point>& points, const char* style_class) {
  add("<path class=\"%s\" d=\"", style_class);
  for (const Point& p : points) {
    body_ += 'M';
    append_tenths(body_, tenths(p.x));
    body_ += ',';
    append_tenths(body_, tenths(p.y));
    body_ += "h0";
  }
  body_ += "\"/>\n";
}

void Svg::down_triangle(Point tip, double size, const char* style_class) {
  path({{tip.x - size, tip.y - 1.6 * size}, {tip.x + size, tip.y - 1.6 * size}, tip}, style_class);
}

}  // namespace heartbeat
