#include "support/program.h"

#include <signal.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <exception>

namespace {

volatile sig_atomic_t interrupted = 0;

struct Interrupted {};

void catchInterrupts() {
  struct sigaction once {};
  once.sa_handler = [](int) { interrupted = 1; };
  once.sa_flags = SA_RESETHAND;
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &once, nullptr);
}

}  // namespace

int runProgram(CLI::App& app, int argc, char** argv, const std::function<void()>& body) {
  constexpr int interruptedCode = 130;  // as shells report it
  CLI11_PARSE(app, argc, argv);
  catchInterrupts();
  try {
    body();
    return 0;
  } catch (const Interrupted&) {
    std::fprintf(stderr, "\n%s: interrupted, the result is not written\n", app.get_name().c_str());
    return interruptedCode;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s: %s\n", app.get_name().c_str(), e.what());
    return 1;
  }
}

void checkInterrupt() {
  if (interrupted) throw Interrupted();
}

CLI::Validator frequency() {
  return CLI::Validator(
      [](const std::string& text) {
        double hz = 0;
        const bool valid = CLI::detail::lexical_cast(text, hz) && std::isfinite(hz) && hz > 0;
        return valid ? std::string() : text + " is no frequency above 0 Hz";
      },
      "HZ");
}

std::string extensionOf(const std::filesystem::path& name) {
  std::string text = name.extension().string();
  for (char& c : text) c = char(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

CLI::Validator extension(std::vector<std::string> allowed) {
  return CLI::Validator(
      [allowed = std::move(allowed)](const std::string& name) {
        const std::string found = extensionOf(name);
        for (const std::string& e : allowed)
          if (found == e) return std::string();
        return "cannot write " + name + ": its name must end in " +
               CLI::detail::join(allowed, ", ");
      },
      "");
}

std::string resultName(const std::filesystem::path& input, const std::string& what) {
  std::string name = input.stem().string();
  if (input.has_extension()) name += "-" + input.extension().string().substr(1);
  return name + "-" + what;
}

std::string shortNumber(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.10g", value);
  return text;
}

std::function<void(double done)> progressOf(const char* job, double seconds) {
  constexpr double longJob = 60;
  if (seconds < longJob || !isatty(STDERR_FILENO)) return nullptr;
  return [job](double done) {
    std::fprintf(stderr, "\r%s %3d%%%s", job, int(100 * done), done >= 1 ? "\n" : "");
  };
}
