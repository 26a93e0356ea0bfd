// lxgen: writes a synthetic catalog from the command line. See LxgenUsage()
// for the options; prints what it planned, what it wrote and how fast.
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/TextCodec.h"
#include "storage/EmptyCatalogImage.h"
#include "tools/CatalogGenerator/CatalogGenerator.h"
#include "tools/CatalogGenerator/LxgenArguments.h"

namespace {

using Clock = std::chrono::steady_clock;

// Only for a local file: a server's files are that server's business.
void CreateIfMissing(const LxgenArguments& arguments) {
  if (!arguments.server.empty() || std::filesystem::exists(arguments.catalog)) return;
  const auto image = EmptyCatalogImage();
  std::ofstream file(arguments.catalog, std::ios::binary);
  file.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
  file.close();
  if (!file) throw std::runtime_error("could not write the empty catalog " + arguments.catalog);
}

GenerationProgress Progress(bool quiet, Clock::time_point start) {
  if (quiet) return {};
  return [start, last = start](const CatalogCounts& written) mutable {
    const Clock::time_point now = Clock::now();
    if (now - last < std::chrono::seconds(2)) return;
    last = now;
    std::printf("  %.0f s: %lld templates, %lld sizes, %lld values\n",
                std::chrono::duration<double>(now - start).count(), static_cast<long long>(written.templates),
                static_cast<long long>(written.sizes), static_cast<long long>(written.values));
    std::fflush(stdout);
  };
}

int Run(const LxgenArguments& arguments) {
  const CatalogGenerator generator(arguments.shape);
  std::printf("planned:\n%s", DescribeCounts(generator.Planned()).c_str());
  CreateIfMissing(arguments);
  const Clock::time_point start = Clock::now();
  const CatalogCounts written =
      generator.Generate(Utf8ToWide(arguments.server), Utf8ToWide(arguments.catalog),
                         Utf8ToWide(arguments.user), Utf8ToWide(arguments.password),
                         Progress(arguments.quiet, start));
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  const long long rows = written.packets + written.folders + written.templates + written.sizes +
                         written.templateAttributes + written.values + written.sizeValues + written.models +
                         written.fragments + written.projections;
  std::printf("written to %s:\n%s", arguments.catalog.c_str(), DescribeCounts(written).c_str());
  std::printf("%lld rows in %.2f s: %.0f rows/s\n", rows, seconds, rows / seconds);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const auto parsed = ParseLxgenArguments(std::vector<std::string>(argv + 1, argv + argc));
  if (const auto* problem = std::get_if<std::string>(&parsed)) {
    if (!problem->empty()) std::fprintf(stderr, "lxgen: %s\n", problem->c_str());
    std::fputs(LxgenUsage(), problem->empty() ? stdout : stderr);
    return problem->empty() ? 0 : 2;
  }
  try {
    return Run(std::get<LxgenArguments>(parsed));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "lxgen: %s\n", error.what());
    return 1;
  }
}
