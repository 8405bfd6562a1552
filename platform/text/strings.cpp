#include <winbase.h>

#include <cstdint>
#include <utility>

LPWSTR WINAPI lstrcpynW(LPWSTR destination, LPCWSTR source, int capacity) {
    if (destination == nullptr || source == nullptr) return nullptr;
    int at = 0;
    for (; at < capacity - 1 && source[at] != 0; ++at) destination[at] = source[at];
    if (capacity > 0) destination[at] = 0;
    return destination;
}

int WINAPI MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    std::int64_t product = std::int64_t{number} * numerator;
    std::int64_t divisor = denominator;
    if (divisor < 0) {
        product = -product;
        divisor = -divisor;
    }
    const std::int64_t half = divisor / 2;
    const std::int64_t result = (product + (product < 0 ? -half : half)) / divisor;
    return std::in_range<int>(result) ? static_cast<int>(result) : -1;
}
