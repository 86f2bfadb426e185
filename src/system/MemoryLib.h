/// @file MemoryLib.h
/// What a program does for which the system has no more memory: it says so and ends, instead of
/// being broken off by the C++ library without a word that a user understands.
///
/// Errors:  none. Memory that some code does without (a picture, a sort's buffer) ends no program.
/// Tests:   tests/system/MemoryLibTest.cpp
#pragma once

/// From now on a want of memory that nobody caught, on any thread, prints "PROGRAM: Out of memory
/// ..." on standard error, calls fnCleanUp, and ends the program with nStatus.
/// @param sProgram   stays valid
/// @param fnCleanUp  may be broken off by the same want
void OutOfMemoryHandle(const char* sProgram, int nStatus, void (*fnCleanUp)());
