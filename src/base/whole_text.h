#pragma once

// Texts as every store keeps them. A server takes no NUL, a file cuts a text off there when it measures it, and half of
// a surrogate pair is no character in any encoding that leaves the program.

#include <QString>

/// NUL and halves of characters become the replacement character; every other text is given back as it is.
QString WholeText(QString text);
