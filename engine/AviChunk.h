// The head of a chunk: four letters and a length, as all parts of an AVI file begin.
#pragma once

#include <cstdint>
#include <cstring>

inline bool isName(const std::uint8_t* letters, const char* name)
{
    return std::memcmp(letters, name, 4) == 0;
}

struct AviChunk {
    static constexpr std::int64_t headBytes = 8;

    AviChunk() = default;
    explicit AviChunk(const std::uint8_t* head)
        : bytes(head[4] | head[5] << 8 | head[6] << 16 | std::uint32_t(head[7]) << 24)
    {
        std::memcpy(name, head, sizeof name);
    }

    bool is(const char* other) const { return isName(name, other); }
    bool ends(char third, char fourth) const { return name[2] == third && name[3] == fourth; }

    /// The number of the stream that the chunk belongs to; -1 where its name begins with no two digits.
    int stream() const { return number(name[0], name[1]); }

    /// The same for the index of a stream, whose name ends in the number.
    int indexOf() const { return name[0] == 'i' && name[1] == 'x' ? number(name[2], name[3]) : -1; }

    std::uint8_t name[4]{};
    std::uint32_t bytes = 0;    ///< behind the head, a byte that fills up to an even length not counted

private:
    static bool digit(std::uint8_t c) { return c >= '0' && c <= '9'; }
    static int number(std::uint8_t tens, std::uint8_t ones)
    {
        return digit(tens) && digit(ones) ? (tens - '0') * 10 + ones - '0' : -1;
    }
};
