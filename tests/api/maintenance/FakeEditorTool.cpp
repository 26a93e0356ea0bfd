// A test double of RuvDbEditor.exe, for the tests of how the library starts
// the tool. It does no database work. Each run appends one line to the file
// named by LX_FAKE_EDITOR_LOG: its program name and arguments as it received
// them, separated by tabs. It exits with the code in LX_FAKE_EDITOR_EXIT_<OPTION>,
// where <OPTION> is the first argument without its dashes, upper case, '-'
// as '_' (LX_FAKE_EDITOR_EXIT_UPDATE_ODS for --update-ods); 0 when unset.
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

std::string ExitVariable(const std::string& option) {
  std::string name = "LX_FAKE_EDITOR_EXIT_";
  const std::size_t start = option.find_first_not_of('-');
  if (start == std::string::npos) return name;
  for (char c : option.substr(start)) {
    name += c == '-' ? '_' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return name;
}

}  // namespace

int main(int argc, char** argv) {
  if (const char* log = std::getenv("LX_FAKE_EDITOR_LOG")) {
    std::ofstream out(log, std::ios::app);
    for (int i = 0; i < argc; ++i) out << (i > 0 ? "\t" : "") << argv[i];
    out << '\n';
  }
  if (argc < 2) return 0;
  const char* code = std::getenv(ExitVariable(argv[1]).c_str());
  return code == nullptr ? 0 : std::atoi(code);
}
