#pragma once

#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Comparisons of many bytes at once, with the processor's vectors where it has them.

/// Bytes that `equalBytes` compares.
inline constexpr int byteBlockLength = 64;
/// Bytes that `equalPrefix` reads from each side.
inline constexpr int prefixLength = 16;

/// A bit for each of the 64 bytes at `bytes`, set where the byte is `wanted`.
[[nodiscard]] inline uint64_t equalBytes(const uint8_t *bytes, uint8_t wanted) noexcept
{
    uint64_t equal = 0;
#if defined(__SSE2__)
    const __m128i pattern = _mm_set1_epi8(static_cast<char>(wanted));
    for (int offset = 0; offset < byteBlockLength; offset += 16) {
        const auto *block = reinterpret_cast<const __m128i *>(bytes + offset);
        const auto bits = static_cast<uint32_t>(
            _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(block), pattern)));
        equal |= static_cast<uint64_t>(bits) << offset;
    }
#else
    for (int offset = 0; offset < byteBlockLength; ++offset)
        equal |= static_cast<uint64_t>(bytes[offset] == wanted) << offset;
#endif
    return equal;
}

/// Whether the first `length` (0 to 16) of the 16 bytes on each side are equal.
[[nodiscard]] inline bool equalPrefix(const uint8_t *left, const uint8_t *right,
                                      int length) noexcept
{
#if defined(__SSE2__)
    const __m128i equal = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(left)),
                                         _mm_loadu_si128(reinterpret_cast<const __m128i *>(right)));
    const auto wanted = (uint32_t{1} << length) - 1;
    return (static_cast<uint32_t>(_mm_movemask_epi8(equal)) & wanted) == wanted;
#else
    for (int i = 0; i < length; ++i) {
        if (left[i] != right[i])
            return false;
    }
    return true;
#endif
}
