#pragma once

#include <string>
#include <utility>

namespace numarel {

// The outcome of an operation that can fail: a code and a message for the user.
// The core reports what went wrong; each front end decides how to show it.
class Status {
public:
    enum class Code {
        Ok,
        NotFound,
        IoError,
        TooManyDrawings,
        InvalidArgument,
        NotBuilt,
        Busy,
        Changed
    };

    Status() = default;

    static Status Ok() { return Status(); }
    static Status NotFound(std::string msg) { return Status(Code::NotFound, std::move(msg)); }
    static Status IoError(std::string msg) { return Status(Code::IoError, std::move(msg)); }
    static Status TooManyDrawings(std::string msg) {
        return Status(Code::TooManyDrawings, std::move(msg));
    }
    static Status InvalidArgument(std::string msg) {
        return Status(Code::InvalidArgument, std::move(msg));
    }
    static Status NotBuilt(std::string msg) { return Status(Code::NotBuilt, std::move(msg)); }
    // Another program holds the file's lock; nothing was written.
    static Status Busy(std::string msg) { return Status(Code::Busy, std::move(msg)); }
    // The file changed on the disk since it was read; nothing was written.
    static Status Changed(std::string msg) { return Status(Code::Changed, std::move(msg)); }

    bool ok() const { return code_ == Code::Ok; }
    Code code() const { return code_; }
    const std::string& message() const { return message_; }
    // "OK" or the message, for logs and the command line.
    std::string ToString() const { return ok() ? std::string("OK") : message_; }

private:
    Status(Code code, std::string msg) : code_(code), message_(std::move(msg)) {}

    Code code_ = Code::Ok;
    std::string message_;
};

}  // namespace numarel
