#include "database/statement_mapping.h"
#include "database/statement_passes.h"

#include <algorithm>

namespace {
/// PostgreSQL's like tells cases apart and takes `\` for an escape; the others do neither.
void MapLikeForPostgres(SqlTokens& tokens)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is("like"))
            continue;
        tokens[i].text = "ilike";
        const size_t pattern = NextWord(tokens, i + 1);
        if (pattern < tokens.size())
            tokens[pattern].text += " escape ''";
    }
}

/// The token that closes the key of an order list that begins at `from`: a comma, a bracket, what follows the list.
size_t KeyEnd(const SqlTokens& tokens, size_t from)
{
    return FindAtDepth(tokens, from, [](const SqlToken& t) { return t.is(",") || t.is("union"); });
}

/// Null sorts below every value in the other databases, above them all in PostgreSQL.
void MapNullOrder(SqlTokens& tokens)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        const size_t by = NextWord(tokens, i + 1);
        if (!tokens[i].is("order") || by >= tokens.size() || !tokens[by].is("by"))
            continue;
        for (size_t end = by; end == by || (end < tokens.size() && tokens[end].is(","));) {
            const size_t from = end + 1;
            end = KeyEnd(tokens, from);
            size_t last = end;
            while (last > from && tokens[last - 1].kind == SqlToken::Kind::Blank)
                --last;
            if (last > from)
                tokens[last - 1].text += tokens[last - 1].is("desc") ? " nulls last" : " nulls first";
        }
    }
}

/// SQL Server's like takes `[` for the start of a set of characters; the others for itself.
void MapLikeForSqlServer(SqlTokens& tokens)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        const size_t pattern = NextWord(tokens, i + 1);
        if (tokens[i].is("like") && pattern < tokens.size() && tokens[pattern].is("?"))
            tokens[pattern].text = "replace(?,'[','[[]')";
    }
}

/// Without its mark a literal is read in the code page of the server, which may know no Chinese.
void MarkUnicodeLiterals(SqlTokens& tokens)
{
    const auto beyondAscii = [](char c) { return static_cast<unsigned char>(c) >= 128; };
    for (SqlToken& token : tokens)
        if (token.kind == SqlToken::Kind::Quoted && token.text.front() == '\'' &&
            std::ranges::any_of(token.text, beyondAscii))
            token.text.insert(token.text.begin(), 'N');
}
} // namespace

std::string MapForPostgres(std::string_view words)
{
    SqlTokens tokens = CutSql(words);
    MapNullOrder(tokens);
    MapLikeForPostgres(tokens);
    MapIntegerCasts(tokens);
    MapTop(tokens, TopForm::Limit);
    MapUpdate(tokens);
    return JoinSql(tokens);
}

std::string MapForSqlServer(std::string_view words)
{
    SqlTokens tokens = CutSql(words);
    MapLikeForSqlServer(tokens);
    MarkUnicodeLiterals(tokens);
    MapIntegerCasts(tokens);
    MapTop(tokens, TopForm::Top);
    MapUpdate(tokens);
    return JoinSql(tokens);
}
