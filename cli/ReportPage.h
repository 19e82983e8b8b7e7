// The page of the command report, made of the files in cli/report.
#pragma once

#include <string_view>

namespace orvane::cli {

extern const std::string_view kReportBegin;  ///< up to the data, a JSON object without "<"
extern const std::string_view kReportEnd;

}  // namespace orvane::cli
