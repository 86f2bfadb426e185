/// @file MemoryLib.h
/// The end of a program that runs out of memory: it says so, instead of being aborted by the C++
/// library without a word that a user understands.
///
/// Errors:  none. An allocation whose failure is caught does not end the program.
/// Tests:   tests/system/MemoryLibTest.cpp
#pragma once

/// From now on an uncaught std::bad_alloc on any thread prints "PROGRAM: Out of memory. ..." on
/// standard error, calls fnCleanUp and ends the program with nStatus.
/// @param sProgram   must stay valid
/// @param fnCleanUp  may itself run out of memory
void OutOfMemoryHandle(const char* sProgram, int nStatus, void (*fnCleanUp)());
