// Runs a libFuzzer entry over stored inputs, for builds without libFuzzer:
// every file named on the command line, and every file in every directory
// named there, in a stable order. A crash or sanitizer report fails the run
// the same way it would fail the fuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

std::vector<std::filesystem::path> InputsUnder(const std::filesystem::path& place) {
  std::vector<std::filesystem::path> inputs;
  if (std::filesystem::is_directory(place)) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
      if (entry.is_regular_file()) inputs.push_back(entry.path());
    }
    std::sort(inputs.begin(), inputs.end());
  } else if (std::filesystem::is_regular_file(place)) {
    inputs.push_back(place);
  }
  return inputs;
}

}  // namespace

int main(int argc, char** argv) {
  size_t replayed = 0;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::exists(argv[i])) {
      std::fprintf(stderr, "no such input: %s\n", argv[i]);
      return 1;
    }
    for (const std::filesystem::path& input : InputsUnder(argv[i])) {
      std::ifstream file(input, std::ios::binary);
      const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
      ++replayed;
    }
  }
  std::printf("replayed %zu inputs\n", replayed);
  return replayed == 0 ? 1 : 0;
}
