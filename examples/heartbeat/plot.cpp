// The picture: four panels, each a rectangle with a scale on either axis, and what is drawn in them.
#include "plot.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "svg.hpp"

namespace heartbeat {
namespace {

constexpr int kWidth = 1200, kHeight = 830;
constexpr double kLeft = 74, kRight = kWidth - 28;
constexpr double kWindow = 12;       // s shown at close range
constexpr double kEdge = 0.06;       // s; a beat nearer to the window's edge is cut off and gets no mark
constexpr double kLostInterval = 2;  // s; a longer one is no heartbeat but a lost signal
constexpr const char* kStyle =
    "text{font-family:'Helvetica Neue',Helvetica,Arial,'DejaVu Sans',sans-serif;font-size:12px;fill:#52606d}"
    ".title{font-size:21px;font-weight:bold;fill:#1f2933}.sub{font-size:13px}.source{font-size:11px;fill:#7b8794}"
    ".panel{font-size:13px;font-weight:bold;fill:#1f2933}.right{text-anchor:end}.mid{text-anchor:middle}"
    ".page{fill:#fff}.frame{fill:none;stroke:#cbd2d9}.grid{stroke:#e9ecef}.focus{fill:#fff1d0}"
    ".raw{fill:none;stroke:#27323d;stroke-width:1.2;stroke-linejoin:round}.strip{fill:#52606d}"
    ".band{fill:none;stroke:#1d5fa8;stroke-width:1.3;stroke-linejoin:round}.energy{fill:#c9def5}"
    ".usual{fill:none;stroke:#1d5fa8;stroke-width:1.8;stroke-linejoin:round}"
    ".dot,.earlydot{fill:none;stroke-linecap:round;stroke-width:3.4;stroke:#9aa5b1}.earlydot{stroke:#d9480f}"
    ".beat{fill:#12805c}.early{fill:#d9480f}.beatline{stroke:#12805c;stroke-opacity:.35}"
    ".earlyline{stroke:#d9480f;stroke-opacity:.5}";

struct Range {
  double low, high;
};

// A rectangle of the page with the values its edges stand for.
struct Panel {
  double top, bottom;
  Range x, y;

  double px(double value) const { return kLeft + (value - x.low) / (x.high - x.low) * (kRight - kLeft); }
  double py(double value) const { return bottom - (value - y.low) / (y.high - y.low) * (bottom - top); }
  Point at(double xv, double yv) const { return {px(xv), py(yv)}; }
};

std::string number(double value, int digits) {
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", digits, value);
  return text;
}

std::string minutes(double seconds) {
  char text[32];
  const int s = static_cast<int>(std::lround(seconds));
  std::snprintf(text, sizeof text, "%d:%02d", s / 60, s % 60);
  return text;
}

// The step of 1, 2 or 5 times a power of ten that cuts the span into about so many parts.
double tick_step(double span, int parts) {
  const double power = std::pow(10, std::floor(std::log10(span / parts)));
  const double rest = span / parts / power;
  return power * (rest < 1.5 ? 1 : rest < 3.5 ? 2 : rest < 7.5 ? 5 : 10);
}

// Least and greatest value with some air, never an empty range.
Range range_of(const std::vector<double>& v, std::size_t begin, std::size_t end) {
  const auto first = v.begin() + static_cast<std::ptrdiff_t>(begin);
  const auto extremes = std::minmax_element(first, v.begin() + static_cast<std::ptrdiff_t>(end));
  const double low = *extremes.first, high = *extremes.second;
  const double air = high > low ? 0.08 * (high - low) : 1;
  return {low - air, high + air};
}

class Plot {
 public:
  explicit Plot(const Picture& picture) : p_(picture), svg_(kWidth, kHeight, kStyle) {}

  std::string draw() {
    find_window();
    svg_.rect({0, 0}, kWidth, kHeight, "page");
    svg_.text({kLeft, 38}, p_.title, "title");
    svg_.text({kLeft, 61}, p_.subtitle, "sub");
    svg_.text({kLeft, kHeight - 14}, p_.source, "source");
    draw_heart_rate();
    draw_strip();
    draw_raw();
    draw_band();
    return svg_.finish();
  }

 private:
  double seconds(double sample) const { return sample / p_.rate; }
  double length() const { return seconds(static_cast<double>(p_.signals.raw.size())); }

  // The window with most early beats, and with its first beat a second inside.
  void find_window() {
    const double span = std::min(kWindow, length());
    double start = 0;
    std::ptrdiff_t most = 0;
    for (const Beat& beat : p_.beats) {
      const double from = std::max(0.0, std::min(seconds(beat.sample) - 1, length() - span));
      const auto inside = [&](const Beat& b) {
        return b.early && seconds(b.sample) > from + 0.5 && seconds(b.sample) < from + span - 0.5;
      };
      const auto count = std::count_if(p_.beats.begin(), p_.beats.end(), inside);
      if (count > most) {
        most = count;
        start = from;
      }
    }
    window_ = {start, start + span};
    begin_ = static_cast<std::size_t>(start * p_.rate);
    end_ = std::min(p_.signals.raw.size(), static_cast<std::size_t>(window_.high * p_.rate) + 1);
  }

  void y_axis(const Panel& panel, const char* unit, int parts) {
    const double step = tick_step(panel.y.high - panel.y.low, parts);
    for (double v = std::ceil(panel.y.low / step) * step; v <= panel.y.high; v += step) {
      svg_.line({kLeft, panel.py(v)}, {kRight, panel.py(v)}, "grid");
      // Adding 0 turns a negative zero into a plain one.
      svg_.text({kLeft - 8, panel.py(v) + 4}, number(std::round(v / step) * step + 0.0, step < 1 ? 1 : 0), "right");
    }
    svg_.turned_text({kLeft - 48, (panel.top + panel.bottom) / 2}, unit, "mid");
  }

  template <class Label>
  void x_axis(const Panel& panel, double step, bool labels, Label label) {
    for (double v = std::ceil(panel.x.low / step - 1e-9) * step; v <= panel.x.high + 1e-9; v += step) {
      svg_.line({panel.px(v), panel.top}, {panel.px(v), panel.bottom}, "grid");
      if (labels) svg_.text({panel.px(v), panel.bottom + 17}, label(v), "mid");
    }
  }

  void frame(const Panel& panel) { svg_.rect({kLeft, panel.top}, kRight - kLeft, panel.bottom - panel.top, "frame"); }

  void focus(const Panel& panel) {
    svg_.rect({panel.px(window_.low), panel.top}, panel.px(window_.high) - panel.px(window_.low),
              panel.bottom - panel.top, "focus");
  }

  double overview_step() const { return length() > 90 ? 30 * std::ceil(length() / 360) : 10; }

  // From half the lowest usual rate to the highest rate of any interval.
  Range rate_range() const {
    double low = 60, high = 100;
    for (std::size_t i = 1; i < p_.beats.size(); ++i) {
      low = std::min(low, usual_rate_at(p_.beats, i, p_.rate) / 2);
      high = std::max(high, rate_at(p_.beats, i, p_.rate));
    }
    return {20 * std::floor(low / 20), 20 * std::ceil((high + 1) / 20)};
  }

  void draw_heart_rate() {
    const Panel panel{100, 238, {0, length()}, rate_range()};
    focus(panel);
    y_axis(panel, "beats per minute", 4);
    x_axis(panel, overview_step(), false, minutes);
    std::vector<Point> usual, dots, early;
    for (std::size_t i = 1; i < p_.beats.size(); ++i) {
      const double t = seconds(p_.beats[i].sample), rate = rate_at(p_.beats, i, p_.rate);
      if (60 / rate > kLostInterval) {
        svg_.path(usual, "usual");
        usual.clear();
        continue;
      }
      usual.push_back(panel.at(t, usual_rate_at(p_.beats, i, p_.rate)));
      if (rate >= panel.y.low) (p_.beats[i].early ? early : dots).push_back(panel.at(t, rate));
    }
    svg_.dots(dots, "dot");
    svg_.dots(early, "earlydot");
    svg_.path(usual, "usual");
    frame(panel);
    svg_.text({kLeft, panel.top - 9}, "Heart rate", "panel");
    const double y = panel.top - 9, sign = y - 4;
    svg_.dots({{kRight - 466, sign}}, "dot");
    svg_.text({kRight - 458, y}, "one interval", "");
    svg_.dots({{kRight - 371, sign}}, "earlydot");
    svg_.text({kRight - 363, y}, "that ends with an early beat", "");
    svg_.path({{kRight - 175, sign}, {kRight - 153, sign}}, "usual");
    svg_.text({kRight, y}, "median of nine intervals", "right");
  }

  // The signal of the whole recording as the band between its extremes in every column of pixels.
  void draw_strip() {
    const std::vector<double>& raw = p_.signals.raw;
    const Panel panel{258, 322, {0, length()}, range_of(raw, 0, raw.size())};
    focus(panel);
    y_axis(panel, "mV", 3);
    x_axis(panel, overview_step(), true, minutes);
    const std::size_t columns = std::min(raw.size(), static_cast<std::size_t>(kRight - kLeft));
    std::vector<Point> outline, lower;
    for (std::size_t c = 0; c < columns; ++c) {
      const auto edge = [&](std::size_t k) {
        return static_cast<std::ptrdiff_t>(static_cast<unsigned long long>(k) * raw.size() / columns);
      };
      const auto extremes = std::minmax_element(raw.begin() + edge(c), raw.begin() + edge(c + 1));
      const double t = length() * (static_cast<double>(c) + 0.5) / static_cast<double>(columns);
      outline.push_back(panel.at(t, *extremes.second));
      lower.push_back(panel.at(t, *extremes.first));
    }
    outline.insert(outline.end(), lower.rbegin(), lower.rend());
    svg_.path(outline, "strip");
    frame(panel);
    svg_.text({(kLeft + kRight) / 2, panel.bottom + 35}, "time in minutes and seconds", "mid");
  }

  std::vector<Point> trace(const Panel& panel, const std::vector<double>& v) const {
    std::vector<Point> points;
    for (std::size_t i = begin_; i < end_; ++i) points.push_back(panel.at(seconds(static_cast<double>(i)), v[i]));
    return points;
  }

  template <class Draw>
  void each_beat_in_window(Draw draw) const {
    for (const Beat& beat : p_.beats) {
      const double t = seconds(beat.sample);
      if (t >= window_.low + kEdge && t <= window_.high - kEdge) draw(t, beat.early);
    }
  }

  void draw_raw() {
    Panel panel{400, 568, window_, range_of(p_.signals.raw, begin_, end_)};
    panel.y.high += 0.12 * (panel.y.high - panel.y.low);  // room for the marks
    y_axis(panel, "mV", 5);
    x_axis(panel, 1, false, minutes);
    each_beat_in_window([&](double t, bool early) {
      svg_.line({panel.px(t), panel.top + 14}, {panel.px(t), panel.bottom}, early ? "earlyline" : "beatline");
    });
    svg_.path(trace(panel, p_.signals.raw), "raw");
    each_beat_in_window([&](double t, bool early) {
      svg_.down_triangle({panel.px(t), panel.top + 15}, 5.5, early ? "early" : "beat");
    });
    frame(panel);
    const double y = panel.top - 9;
    svg_.text({kLeft, y}, "Recording, " + minutes(window_.low) + " to " + minutes(window_.high), "panel");
    svg_.down_triangle({kRight - 312, y}, 5.5, "beat");
    svg_.text({kRight - 302, y}, "beat", "");
    svg_.down_triangle({kRight - 251, y}, 5.5, "early");
    svg_.text({kRight, y}, "early beat: interval below 85 % of usual", "right");
  }

  void draw_band() {
    const Panel panel{604, 754, window_, range_of(p_.signals.band, begin_, end_)};
    y_axis(panel, "mV", 5);
    x_axis(panel, 1, true, [](double v) { return number(v, 0); });
    std::vector<double> root(p_.signals.energy.size());
    for (std::size_t i = begin_; i < end_; ++i) root[i] = std::sqrt(std::max(0.0, p_.signals.energy[i]));
    std::vector<Point> area = trace(panel, root);
    area.insert(area.begin(), panel.at(window_.low, 0));
    area.push_back(panel.at(seconds(static_cast<double>(end_ - 1)), 0));
    svg_.path(area, "energy");
    each_beat_in_window([&](double t, bool early) {
      svg_.line({panel.px(t), panel.top}, {panel.px(t), panel.bottom}, early ? "earlyline" : "beatline");
    });
    svg_.path(trace(panel, p_.signals.band), "band");
    frame(panel);
    const double y = panel.top - 9, sign = y - 4;
    svg_.text({kLeft, y}, "Band pass 5 to 20 Hz", "panel");
    svg_.path({{kRight - 329, sign}, {kRight - 307, sign}}, "band");
    svg_.text({kRight - 301, y}, "filtered signal", "");
    svg_.rect({kRight - 202, y - 10}, 22, 11, "energy");
    svg_.text({kRight, y}, "root of the smoothed energy", "right");
    svg_.text({(kLeft + kRight) / 2, panel.bottom + 36}, "time in s", "mid");
  }

  const Picture& p_;
  Svg svg_;
  Range window_{0, 0};
  std::size_t begin_ = 0, end_ = 0;  // the window in samples
};

}  // namespace

std::string draw(const Picture& picture) { return Plot(picture).draw(); }

}  // namespace heartbeat
