#include "database/sqlite_nocase.h"

#include "database/ascii_words.h"

#include <algorithm>
#include <cstdint>
#include <sqlite3.h>

namespace {
/// Moves `at` on by whole words to the first byte that differs; false where none does.
template <typename Word>
bool FindDifference(const char* left, const char* right, int length, int& at)
{
    constexpr int kSize = sizeof(Word);
    for (; at + kSize <= length; at += kSize) {
        const auto difference = static_cast<Word>(WordAt<Word>(left + at) ^ WordAt<Word>(right + at));
        if (difference != 0) {
            at += std::countr_zero(difference) / 8;
            return true;
        }
    }
    return false;
}

int Compare(void*, int leftLength, const void* leftText, int rightLength, const void* rightText)
{
    const auto* const left = static_cast<const char*>(leftText);
    const auto* const right = static_cast<const char*>(rightText);
    const int common = std::min(leftLength, rightLength);
    int at = 0;
    for (; FindDifference<std::uint64_t>(left, right, common, at) ||
           FindDifference<std::uint32_t>(left, right, common, at) ||
           FindDifference<std::uint8_t>(left, right, common, at);
         ++at) {
        const int difference = LowerAscii(left[at]) - LowerAscii(right[at]);
        if (difference != 0)
            return difference;
    }
    return leftLength - rightLength;
}
} // namespace

void RegisterNoCase(sqlite3* database)
{
    sqlite3_create_collation(database, "NOCASE", SQLITE_UTF8, nullptr, Compare);
}
