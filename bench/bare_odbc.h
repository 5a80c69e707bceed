#pragma once

// The floor of a server: what a program does that knows its statements in advance, prepares each once, and binds, runs
// and reads it through ODBC itself.

#include "database/odbc_handle.h"

#include <map>
#include <vector>

class BareOdbc
{
public:
    explicit BareOdbc(const ServerAddress& address);

    /// Prepared at the first call; reads all rows and keeps none. False where it failed.
    bool Run(const std::string& words, const std::vector<Value>& values);

private:
    struct Text
    {
        std::u16string text;
        SQLLEN length;
    };

    bool Bind(SQLHANDLE statement, const std::vector<Value>& values);

    OdbcConnection m_connection;
    std::map<std::string, OdbcHandle> m_statements;
    std::vector<Text> m_texts;
};
