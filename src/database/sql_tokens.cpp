#include "database/sql_tokens.h"

#include <algorithm>

namespace {
bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Bytes of a name beyond ASCII (a Chinese alias) belong to the word.
bool IsWordByte(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 128 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
           (byte >= 'A' && byte <= 'Z') || byte == '_' || byte == '.';
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// End of a quoted text that opens at `from`; a doubled quote stays inside.
size_t QuoteEnd(std::string_view words, size_t from)
{
    const char quote = words[from];
    size_t at = from + 1;
    while (at < words.size()) {
        if (words[at] == quote) {
            if (at + 1 < words.size() && words[at + 1] == quote) {
                at += 2;
                continue;
            }
            return at + 1;
        }
        ++at;
    }
    return words.size();
}
} // namespace

bool SqlToken::is(std::string_view keyword) const
{
    return kind != Kind::Quoted && std::equal(text.begin(), text.end(), keyword.begin(), keyword.end(),
                                              [](char a, char b) { return Lower(a) == Lower(b); });
}

SqlTokens CutSql(std::string_view words)
{
    SqlTokens tokens;
    size_t at = 0;
    while (at < words.size()) {
        size_t end = at + 1;
        SqlToken::Kind kind = SqlToken::Kind::Sign;
        if (words[at] == '\'' || words[at] == '"') {
            kind = SqlToken::Kind::Quoted;
            end = QuoteEnd(words, at);
        } else if (IsBlank(words[at])) {
            kind = SqlToken::Kind::Blank;
            while (end < words.size() && IsBlank(words[end]))
                ++end;
        } else if (IsWordByte(words[at])) {
            kind = SqlToken::Kind::Word;
            while (end < words.size() && IsWordByte(words[end]))
                ++end;
        }
        tokens.push_back({kind, std::string(words.substr(at, end - at))});
        at = end;
    }
    return tokens;
}

std::string JoinSql(const SqlTokens& tokens)
{
    std::string words;
    for (const SqlToken& token : tokens)
        words += token.text;
    return words;
}

size_t NextWord(const SqlTokens& tokens, size_t from)
{
    while (from < tokens.size() && tokens[from].kind == SqlToken::Kind::Blank)
        ++from;
    return from;
}
