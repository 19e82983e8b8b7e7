#include "cli/DateText.h"

#include <chrono>
#include <cmath>
#include <regex>

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

int numberOf(const std::ssub_match& digits) { return digits.matched ? std::stoi(digits.str()) : 0; }

std::optional<Date> calendarDate(const std::smatch& part) {
  using namespace std::chrono;
  const int y = numberOf(part[1]), m = numberOf(part[2]), d = numberOf(part[3]);
  const year_month_day day{year{y}, month{static_cast<unsigned>(m)},
                           std::chrono::day{static_cast<unsigned>(d)}};
  const int hours = numberOf(part[4]), minutes = numberOf(part[5]), seconds = numberOf(part[6]);
  if (y < 100 || !day.ok() || hours > 23 || minutes > 59 || seconds > 59) return {};
  return dateOf(y, m, d, hours, minutes, seconds);
}

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
  static const std::regex calendar(R"((\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2}))?)?)");
  if (text.empty()) return Date{};
  if (equalIgnoringCase(fromUtf8(text), u"now")) return Apartment::now();
  if (std::smatch parts; std::regex_match(text, parts, calendar)) return calendarDate(parts);
  if (const auto number = parseNumber(fromUtf8(text))) return Date{*number};
  return {};
}

}  // namespace orvane::cli
