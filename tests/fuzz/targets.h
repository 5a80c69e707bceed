#pragma once

// What is fed with any bytes: the readers of what comes from outside, and the translators of statements. Each returns
// for whatever it is given; a broken promise ends the process.

#include <cstddef>
#include <cstdint>

using FuzzTarget = void (*)(const uint8_t* bytes, size_t size);

void FuzzHandover(const uint8_t* bytes, size_t size);
void FuzzStatement(const uint8_t* bytes, size_t size);
void FuzzBillFile(const uint8_t* bytes, size_t size);
