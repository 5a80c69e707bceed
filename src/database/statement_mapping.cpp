#include "database/statement_mapping.h"

#include "database/statement_passes.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace {
/// The tokens of `X like ?`.
struct Like
{
    size_t column;
    size_t pattern;
};

/// The like that begins at the first word from `from` on and is all that stands between two `or`s or brackets.
std::optional<Like> LikeAt(const SqlTokens& tokens, size_t from)
{
    const auto is = [&tokens](size_t at, const char* word) { return at < tokens.size() && tokens[at].is(word); };
    const size_t column = NextWord(tokens, from);
    const size_t like = NextWord(tokens, column + 1);
    const size_t pattern = NextWord(tokens, like + 1);
    if (!is(like, "like") || !is(pattern, "?") || tokens[column].kind != SqlToken::Kind::Word)
        return {};
    const size_t behind = NextWord(tokens, pattern + 1);
    const auto ends = {"or", ")", "order", "group", "union"};
    if (behind < tokens.size() && std::ranges::none_of(ends, [&](const char* end) { return is(behind, end); }))
        return {};
    return Like{column, pattern};
}

/// Likes with nothing but `or` between them, from `from` on.
std::vector<Like> LikesAt(const SqlTokens& tokens, size_t from)
{
    std::vector<Like> likes;
    for (std::optional<Like> like = LikeAt(tokens, from); like; like = LikeAt(tokens, from)) {
        likes.push_back(*like);
        const size_t next = NextWord(tokens, like->pattern + 1);
        if (next >= tokens.size() || !tokens[next].is("or"))
            break;
        from = next + 1;
    }
    return likes;
}

/// `X like ? or Y like ? ..` becomes `any_like(X,?,Y,?,..)`, the store's own function. A single like stays, and so do
/// those of one column: they may find their rows by an index.
void MapLikes(SqlTokens& tokens)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is("where") && !tokens[i].is("(") && !tokens[i].is("or"))
            continue;
        const std::vector<Like> likes = LikesAt(tokens, i + 1);
        const auto column = [&tokens](const Like& like) { return tokens[like.column].text; };
        if (std::ranges::adjacent_find(likes, std::not_equal_to{}, column) == likes.end())
            continue;
        std::string pairs;
        for (const Like& like : likes)
            pairs += "," + column(like) + ",?";
        const auto first = tokens.begin() + static_cast<long>(likes.front().column);
        *first = {SqlToken::Kind::Word, "any_like(" + pairs.substr(1) + ")"};
        tokens.erase(first + 1, tokens.begin() + static_cast<long>(likes.back().pattern) + 1);
    }
}

} // namespace

std::string MapForSqlite(std::string_view words)
{
    SqlTokens tokens = CutSql(words);
    MapLikes(tokens);
    MapIntegerCasts(tokens);
    MapTop(tokens, TopForm::Limit);
    MapUpdate(tokens);
    return JoinSql(tokens);
}
