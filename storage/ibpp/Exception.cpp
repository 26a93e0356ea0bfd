#include "storage/ibpp/Exception.h"

#include <utility>

namespace IBPP {

Exception::Exception(std::string message) : message_(std::move(message)) {}

const char* Exception::what() const noexcept { return message_.c_str(); }

}  // namespace IBPP
