#pragma once

// A statement's words cut into tokens, for the stores that have to say it in their own dialect.

#include <string>
#include <string_view>
#include <vector>

struct SqlToken
{
    enum class Kind
    {
        Blank,  // white space
        Word,   // a name, a keyword or a number, with its dots: TabWare.Code
        Quoted, // '..' or ".."
        Sign,   // one other character
    };
    Kind kind;
    std::string text;

    /// A keyword, compared without regard to case.
    bool is(std::string_view keyword) const;
};

using SqlTokens = std::vector<SqlToken>;

SqlTokens CutSql(std::string_view words);
std::string JoinSql(const SqlTokens& tokens);
/// The first token from `from` on that is not blank; the size where there is none.
size_t NextWord(const SqlTokens& tokens, size_t from);
