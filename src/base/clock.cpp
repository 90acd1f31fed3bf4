#include "base/clock.h"

#include "base/numbers.h"

static std::time_t systemtime()
{
    return std::time(nullptr);
}

std::time_t (*presenttime)() = systemtime;

static std::tm localparts()
{
    const std::time_t moment = presenttime();
    std::tm parts{};
    localtime_r(&moment, &parts);
    return parts;
}

std::string datetext()
{
    const std::tm parts = localparts();
    return formatnumber("0000", parts.tm_year + 1900) + formatnumber("-00", parts.tm_mon + 1) +
           formatnumber("-00", parts.tm_mday);
}

std::string timetext()
{
    const std::tm parts = localparts();
    return formatnumber("00", parts.tm_hour) + formatnumber(":00", parts.tm_min) +
           formatnumber(":00", parts.tm_sec);
}
