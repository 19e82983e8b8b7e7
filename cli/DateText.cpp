#include "cli/DateText.h"

#include <chrono>
#include <cmath>
#include <string_view>

#include "core/Apartment.h"
#include "core/Numbers.h"

namespace orvane::cli {

namespace {

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr double kSecondsOfDay = 86400;
constexpr double kFirstDay = -657434, kEndOfDays = 2958466;  // 1 January 100, 1 January 10000

// The time of day counts forward in negative serial numbers too.
struct Split {
  long days;
  long seconds;
};

Split split(Date date) {
  const double days = std::trunc(date.days);
  const long seconds = std::lround(std::fabs(date.days - days) * kSecondsOfDay);
  const bool nextDay = seconds == static_cast<long>(kSecondsOfDay);
  return {static_cast<long>(days) + (nextDay ? 1 : 0), nextDay ? 0 : seconds};
}

std::string digits(long number, std::size_t width) {
  const std::string text = std::to_string(number);
  return std::string(text.size() < width ? width - text.size() : 0, '0') + text;
}

// Reads "Y-M-D", and after a blank or T "h:m" with or without ":s".
class CalendarReader {
 public:
  explicit CalendarReader(const std::string& text) : text_(text) {}

  std::optional<Date> read() {
    const int y = number(4, 4), m = take("-") ? number(1, 2) : 0, d = take("-") ? number(1, 2) : 0;
    const bool timed = !failed_ && take(" T");
    const int hours = timed ? number(1, 2) : 0, minutes = timed && take(":") ? number(2, 2) : timed ? -1 : 0;
    const int seconds = timed && take(":") ? number(2, 2) : 0;
    if (failed_ || at_ != text_.size() || !isDay(y, m, d)) return {};
    if (hours > 23 || minutes < 0 || minutes > 59 || seconds > 59) return {};
    return dateOf(y, m, d, hours, minutes, seconds);
  }

 private:
  static bool isDay(int y, int m, int d) {
    using namespace std::chrono;
    return y >= 100 &&
           year_month_day(year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}).ok();
  }

  int number(std::size_t least, std::size_t most) {
    int value = 0;
    std::size_t count = 0;
    for (; count < most && at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++count) {
      value = 10 * value + (text_[at_++] - '0');
    }
    if (count < least) failed_ = true;
    return value;
  }

  bool take(const char* any) {
    const bool there = at_ < text_.size() && std::string_view(any).find(text_[at_]) != std::string_view::npos;
    if (there) ++at_;
    return there;
  }

  const std::string& text_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

}  // namespace

std::string dateText(Date date) {
  if (date.days == 0) return {};
  if (!(date.days >= kFirstDay && date.days < kEndOfDays)) return toUtf8(numberText(date.days));
  const auto [days, seconds] = split(date);
  const std::chrono::year_month_day day{kDayZero + std::chrono::days{days}};
  std::string text = digits(static_cast<int>(day.year()), 4) + '-' +
                     digits(static_cast<unsigned>(day.month()), 2) + '-' +
                     digits(static_cast<unsigned>(day.day()), 2);
  if (seconds == 0) return text;
  text += ' ' + digits(seconds / 3600, 2);
  text += ':' + digits(seconds / 60 % 60, 2);
  text += ':' + digits(seconds % 60, 2);
  return text;
}

std::optional<Date> parseDate(const std::string& text) {
  if (text.empty()) return Date{};
  if (equalIgnoringCase(fromUtf8(text), u"now")) return Apartment::now();
  if (const auto date = CalendarReader(text).read()) return date;
  if (const auto number = parseNumber(fromUtf8(text))) return Date{*number};
  return {};
}

}  // namespace orvane::cli
