#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qvm {

/// Lines of standard input, without ever waiting for one.
class InputLines {
public:
    /// To be polled for input; -1 once the input has ended.
    int Handle() const { return handle_; }
    /// The lines that have come whole. To be called when the handle can be read from. A line longer than any that means
    /// something is dropped.
    std::vector<std::string> Read();

private:
    int handle_ = 0;
    bool tooLong_ = false;
    std::string rest_;
};

} // namespace qvm
