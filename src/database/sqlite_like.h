#pragma once

// any_like(X,pattern,Y,pattern,..): what `X like pattern or Y like pattern or ..` says, in one call for a row and with
// each pattern read once for all of them. A text that no good holds is looked for in every good at every key typed.

struct sqlite3;

void RegisterAnyLike(sqlite3* database);
