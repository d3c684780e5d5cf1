// The frame of an example program: its options, its messages, and what a signal does to it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// <CLI/CLI.hpp> takes seconds to compile: those who declare options include it.
namespace CLI {
class App;
class Validator;
}  // namespace CLI

// Parses the options and runs `body`; tells an exception's text to the user. A first interrupt
// makes checkInterrupt() throw, a second one ends the program at once.
int runProgram(CLI::App& app, int argc, char** argv, const std::function<void()>& body);

// To be called once a block of a long job.
void checkInterrupt();

// For an option that takes Hz: a finite number above 0.
CLI::Validator frequency();
// For an option that takes a name: one of these extensions, in letters of either case.
CLI::Validator extension(std::vector<std::string> allowed);

// The extension with its dot, in small letters.
std::string extensionOf(const std::filesystem::path& name);
// song.flac and "lowpass-1000Hz" give song-flac-lowpass-1000Hz: a name of its own for each input.
std::string resultName(const std::filesystem::path& input, const std::string& what);
// A number as short as it can be: 1000, 0.5.
std::string shortNumber(double value);

// Shows the percentage on a terminal; null elsewhere and for jobs of less than a minute of sound.
std::function<void(double done)> progressOf(const char* job, double seconds);
