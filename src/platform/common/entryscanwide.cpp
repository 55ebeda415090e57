// Compiled for x86-64 processors with AVX2, see CMakeLists.txt; the others never come here.
#include "platform/common/entryscankernel.h"

#ifdef __AVX2__

#include <immintrin.h>

namespace zvr::scan {
namespace {

struct Wide {
    __m256i low;
    __m256i high;

    static Wide Equal(const char* text, char letter) {
        const __m256i letters = _mm256_set1_epi8(letter);
        const auto half = [&letters](const char* from) {
            return _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from)), letters);
        };
        return {half(text), half(text + 32)};
    }
    Wide operator&(const Wide& other) const {
        return {_mm256_and_si256(low, other.low), _mm256_and_si256(high, other.high)};
    }
    [[nodiscard]] std::uint64_t Bits() const {
        const auto bits = [](__m256i half) {
            return std::uint64_t{static_cast<std::uint32_t>(_mm256_movemask_epi8(half))};
        };
        return bits(low) | bits(high) << 32U;
    }
};

}  // namespace

ScanPart WideScan() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("popcnt")
               ? &Kernel<Wide>::Scan
               : nullptr;
}

}  // namespace zvr::scan

#else

namespace zvr::scan {

ScanPart WideScan() {
    return nullptr;
}

}  // namespace zvr::scan

#endif
