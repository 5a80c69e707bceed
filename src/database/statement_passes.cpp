#include "database/statement_passes.h"

#include <algorithm>

namespace {
/// Whether a select that begins at `select` follows a union at its depth.
bool FollowsUnion(const SqlTokens& tokens, size_t select)
{
    int depth = 0;
    for (size_t i = select; i-- > 0;) {
        if (depth == 0 && tokens[i].is("("))
            return false;
        if (depth == 0 && tokens[i].is("union"))
            return true;
        depth += DepthStep(tokens[i]);
    }
    return false;
}

/// Takes `table` and the comma beside it out of a list of tables.
SqlTokens WithoutTable(const SqlTokens& list, const SqlToken& table)
{
    std::string rest;
    std::string item;
    const auto finishItem = [&] {
        const size_t first = item.find_first_not_of(" \t\r\n");
        if (first != std::string::npos) {
            item = item.substr(first, item.find_last_not_of(" \t\r\n") - first + 1);
            if (!table.is(item))
                rest += (rest.empty() ? "" : ",") + item;
        }
        item.clear();
    };
    for (const SqlToken& token : list) {
        if (token.is(","))
            finishItem();
        else
            item += token.text;
    }
    finishItem();
    return rest.empty() ? SqlTokens{} : SqlTokens{{SqlToken::Kind::Word, " from " + rest + " "}};
}

/// The targets of a set list bear no table name.
void StripTargets(SqlTokens& setList)
{
    bool atTarget = true;
    int depth = 0;
    for (SqlToken& token : setList) {
        depth += DepthStep(token);
        if (depth == 0 && token.is(","))
            atTarget = true;
        else if (atTarget && token.kind == SqlToken::Kind::Word) {
            token.text = token.text.substr(token.text.rfind('.') + 1);
            atTarget = false;
        }
    }
}

SqlTokens Slice(const SqlTokens& tokens, size_t from, size_t to)
{
    return from < to ? SqlTokens(tokens.begin() + static_cast<long>(from), tokens.begin() + static_cast<long>(to))
                     : SqlTokens{};
}
} // namespace

void MapIntegerCasts(SqlTokens& tokens)
{
    for (size_t i = 0; i < tokens.size(); ++i) {
        const bool isConvert = tokens[i].is("convert");
        if (!isConvert && !tokens[i].is("cint"))
            continue;
        const size_t open = NextWord(tokens, i + 1);
        if (open >= tokens.size() || !tokens[open].is("("))
            continue;
        size_t argument = open + 1;
        if (isConvert) {
            const size_t comma = FindAtDepth(tokens, argument, [](const SqlToken& t) { return t.is(","); });
            if (comma >= tokens.size() || !tokens[comma].is(","))
                continue;
            argument = comma + 1;
        }
        const size_t close = FindAtDepth(tokens, argument, [](const SqlToken&) { return false; });
        if (close >= tokens.size())
            continue;
        tokens[i].text = "cast";
        tokens[close].text = " as integer)";
        tokens.erase(tokens.begin() + static_cast<long>(open) + 1, tokens.begin() + static_cast<long>(argument));
    }
}

void MapTop(SqlTokens& tokens, TopForm form)
{
    for (size_t i = tokens.size(); i-- > 0;) {
        if (!tokens[i].is("top"))
            continue;
        const size_t count = NextWord(tokens, i + 1);
        if (count >= tokens.size() || i < 2 || !tokens[i - 2].is("select"))
            continue;
        const size_t select = i - 2;
        const size_t end = FindAtDepth(tokens, count + 1, [](const SqlToken& t) { return t.is("union"); });
        const bool isBranch = (end < tokens.size() && tokens[end].is("union")) || FollowsUnion(tokens, select);
        const std::string limit = form == TopForm::Limit ? " limit " + tokens[count].text : "";
        tokens.insert(tokens.begin() + static_cast<long>(end),
                      {SqlToken::Kind::Word, limit + (isBranch ? ") as t1 " : " ")});
        if (form == TopForm::Limit)
            tokens.erase(tokens.begin() + static_cast<long>(i), tokens.begin() + static_cast<long>(count) + 1);
        if (isBranch)
            tokens[select].text = "select * from (" + tokens[select].text;
    }
}

void MapUpdate(SqlTokens& tokens)
{
    const size_t update = NextWord(tokens, 0);
    if (update >= tokens.size() || !tokens[update].is("update"))
        return;
    const auto find = [&](size_t from, const char* keyword) {
        return FindAtDepth(tokens, from, [keyword](const SqlToken& t) { return t.is(keyword); });
    };
    const size_t table = NextWord(tokens, update + 1);
    const size_t set = find(table, "set");
    if (table >= tokens.size() || set >= tokens.size())
        return;
    const size_t where = find(set, "where");
    const size_t from = std::min(find(set, "from"), where);

    SqlTokens sources = Slice(tokens, table + 1, set);
    const SqlTokens fromList = Slice(tokens, from + 1, where);
    sources.push_back({SqlToken::Kind::Sign, ","});
    sources.insert(sources.end(), fromList.begin(), fromList.end());

    SqlTokens setList = Slice(tokens, set + 1, from);
    StripTargets(setList);

    SqlTokens mapped{{SqlToken::Kind::Word, "update " + tokens[table].text + " set "}};
    for (const SqlTokens& part : {setList, WithoutTable(sources, tokens[table]), Slice(tokens, where, tokens.size())})
        mapped.insert(mapped.end(), part.begin(), part.end());
    tokens = std::move(mapped);
}
