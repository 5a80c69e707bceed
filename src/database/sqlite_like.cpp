#include "database/sqlite_like.h"

#include "database/ascii_words.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace {
constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighs = 0x8080808080808080;

/// One byte of a searched text, to be compared with eight bytes at once.
class AnchorByte
{
public:
    /// @param byte  in lower case
    explicit AnchorByte(unsigned char byte)
        : m_case(byte >= 'a' && byte <= 'z' ? kOnes * ('a' - 'A') : 0), m_byte(kOnes * byte)
    {}
    /// A zero byte where it stands, in either case.
    std::uint64_t Differences(const char* text) const { return (WordAt<std::uint64_t>(text) | m_case) ^ m_byte; }

private:
    std::uint64_t m_case;
    std::uint64_t m_byte;
};

/// A text looked for anywhere, without regard to ASCII case. The bytes of a Chinese character have none.
class Needle
{
public:
    /// @param text  in lower case, not empty
    explicit Needle(std::string text)
        : m_text(std::move(text)),
          m_first(static_cast<unsigned char>(m_text.front())),
          m_last(static_cast<unsigned char>(m_text.back()))
    {}

    bool isIn(std::string_view text) const
    {
        if (text.size() < m_text.size())
            return false;
        const char* at = text.data();
        const char* const end = at + (text.size() - m_text.size()) + 1;
        for (; end - at >= 8; at += 8)
            if (StartsAmongEight(at))
                return true;
        for (; at != end; ++at)
            if (StartsAt(at))
                return true;
        return false;
    }

private:
    /// Starts are sought by the first byte and the last: those of Chinese characters are few.
    bool StartsAmongEight(const char* text) const
    {
        const std::uint64_t both = m_first.Differences(text) | m_last.Differences(text + m_text.size() - 1);
        // Above a zero byte another may be marked by its borrow; the text itself decides.
        for (std::uint64_t zeros = (both - kOnes) & ~both & kHighs; zeros != 0; zeros &= zeros - 1)
            if (StartsAt(text + std::countr_zero(zeros) / 8))
                return true;
        return false;
    }
    bool StartsAt(const char* text) const
    {
        return std::equal(m_text.begin(), m_text.end(), text,
                          [](char own, char other) { return static_cast<unsigned char>(own) == LowerAscii(other); });
    }

    std::string m_text;
    AnchorByte m_first;
    AnchorByte m_last;
};

/// The text that a pattern of the form %text% looks for; empty for every other pattern.
std::string TextAnywhere(const std::string& pattern)
{
    if (pattern.size() < 3 || pattern.front() != '%' || pattern.back() != '%')
        return {};
    std::string text = pattern.substr(1, pattern.size() - 2);
    if (text.find_first_of("%_") != std::string::npos)
        return {};
    std::ranges::transform(text, text.begin(), [](char byte) { return static_cast<char>(LowerAscii(byte)); });
    return text;
}

class Pattern
{
public:
    explicit Pattern(sqlite3_value* pattern) : m_type(sqlite3_value_type(pattern))
    {
        if (const unsigned char* const words = sqlite3_value_text(pattern))
            m_words = reinterpret_cast<const char*>(words);
        if (std::string text = TextAnywhere(m_words); !text.empty())
            m_needle.emplace(std::move(text));
    }

    /// Unset where one of the two is null. A blob is like nothing.
    std::optional<bool> isMatchedBy(sqlite3_value* value) const
    {
        const int type = sqlite3_value_type(value);
        if (type == SQLITE_BLOB || m_type == SQLITE_BLOB)
            return false;
        if (type == SQLITE_NULL || m_type == SQLITE_NULL)
            return {};
        if (m_needle && type == SQLITE_TEXT && !m_needle->isIn(BytesOf(value)))
            return false;
        // What is found is looked for again: a text ends at its first zero byte.
        const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return m_needle ? m_needle->isIn(text) : sqlite3_strlike(m_words.c_str(), text, 0) == 0;
    }

private:
    /// Of a text. As a blob it is had where it lies; asked for as a text it would be copied for the zero behind it.
    static std::string_view BytesOf(sqlite3_value* text)
    {
        const auto* const bytes = static_cast<const char*>(sqlite3_value_blob(text));
        return {bytes, bytes ? static_cast<size_t>(sqlite3_value_bytes(text)) : 0};
    }

    int m_type;
    std::string m_words;
    std::optional<Needle> m_needle;
};

using Patterns = std::vector<Pattern>;

/// The patterns are parameters: read at the first row, they are kept by SQLite until the statement ends.
const Patterns& PatternsOf(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (const auto* const known = static_cast<const Patterns*>(sqlite3_get_auxdata(context, 1)))
        return *known;
    auto patterns = std::make_unique<Patterns>();
    for (int at = 1; at < count; at += 2)
        patterns->emplace_back(values[at]);
    sqlite3_set_auxdata(context, 1, patterns.release(), [](void* kept) { delete static_cast<Patterns*>(kept); });
    return *static_cast<const Patterns*>(sqlite3_get_auxdata(context, 1));
}

/// One pair that matches is enough; where none does, a null leaves it open.
void AnyLike(sqlite3_context* context, int count, sqlite3_value** values)
{
    bool isOpen = false;
    for (const Pattern& pattern : PatternsOf(context, count, values)) {
        const std::optional<bool> isMatched = pattern.isMatchedBy(*values);
        if (isMatched.value_or(false))
            return sqlite3_result_int(context, 1);
        isOpen |= !isMatched;
        values += 2;
    }
    if (!isOpen)
        sqlite3_result_int(context, 0);
}
} // namespace

void RegisterAnyLike(sqlite3* database)
{
    sqlite3_create_function(database, "any_like", -1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, AnyLike, nullptr,
                            nullptr);
}
