#ifndef IPSEC_POLICY_STANDARD_OUTPUT_H
#define IPSEC_POLICY_STANDARD_OUTPUT_H

#include <string>
#include <string_view>

/// Standard output for results of any length, which come in small pieces. All of it throws a Failure.
class StandardOutput {
  public:
    StandardOutput() = default;

    StandardOutput(const StandardOutput&)            = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    void write(std::string_view text);

    /// Writes what is left and closes standard output. Without it the last pieces are lost.
    void close();

  private:
    std::string pending_;
};

#endif
