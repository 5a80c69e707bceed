#pragma once

// The steps that the mappings are made of: each says one form of a statement in other words and leaves the order of
// the values as it is.

#include "database/sql_tokens.h"

/// Depth of brackets change that a token brings.
inline int DepthStep(const SqlToken& token)
{
    return token.is("(") ? 1 : token.is(")") ? -1 : 0;
}

/// From `from` on, the first token at the same depth that `matches`, or that closes the bracket around; else the end.
template <typename Matches>
size_t FindAtDepth(const SqlTokens& tokens, size_t from, Matches matches)
{
    int depth = 0;
    for (size_t i = from; i < tokens.size(); ++i) {
        if (depth == 0 && (tokens[i].is(")") || matches(tokens[i])))
            return i;
        depth += DepthStep(tokens[i]);
    }
    return tokens.size();
}

/// `cint(x)` and `convert(int,x)` become `cast(x as integer)`.
void MapIntegerCasts(SqlTokens& tokens);

/// How a store is told that it needs the first rows alone.
enum class TopForm
{
    Limit, // select .. limit n
    Top,   // select top n ..
};

/// `select top n ..` in the form of the store, in a derived table where it is a branch of a union.
void MapTop(SqlTokens& tokens, TopForm form);

/// `update T,U set T.a=.. where ..` and `update T set T.a=.. from T,U where ..` become
/// `update T set a=.. from U where ..`.
void MapUpdate(SqlTokens& tokens);
