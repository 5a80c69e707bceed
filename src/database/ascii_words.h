#pragma once

// Bytes of texts as SQLite compares them, where only ASCII letters have two cases, and several bytes taken at once.

#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "the first byte of a text is the lowest of a word");

constexpr unsigned char LowerAscii(char byte)
{
    return static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte);
}

template <typename Word>
Word WordAt(const char* text)
{
    Word word;
    std::memcpy(&word, text, sizeof word);
    return word;
}
