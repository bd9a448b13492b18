// A small writer of SVG: shapes in pixels, with classes whose colours stand in one style sheet.
#pragma once

#include <string>
#include <vector>

namespace heartbeat {

struct Point {
  double x, y;
};

class Svg {
 public:
  Svg(int width, int height, const char* style);

  void rect(Point corner, double width, double height, const char* style_class);
  void line(Point from, Point to, const char* style_class);
  // Text may hold any bytes: what XML or its encoding doesn't allow is replaced.
  void text(Point at, const std::string& text, const char* style_class);
  void turned_text(Point at, const std::string& text, const char* style_class);  // reads upwards
  void path(const std::vector<Point>& points, const char* style_class);
  void dots(const std::vector<Point>& points, const char* style_class);  // size and colour of the stroke
  void down_triangle(Point tip, double size, const char* style_class);

  std::string finish() const { return body_ + "</svg>\n"; }

 private:
  void add(const char* format, ...) __attribute__((format(printf, 2, 3)));

  std::string body_;
};

}  // namespace heartbeat
