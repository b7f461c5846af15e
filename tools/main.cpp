#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

#include "files/error.h"
#include "tools/import/import_recording.h"
#include "tools/info/describe_file.h"
#include "tools/progress.h"
#include "tools/sample/make_sample.h"

namespace {

constexpr int kFailure = 1;
constexpr int kWrongUsage = 2;
constexpr uint64_t kMostSampleSpikes = 50'000'000;

void Print(const pallomir::ImportReport& report) {
  for (const std::string& line : report.Lines()) std::cout << line << "\n";
}

int Run(int argc, char** argv) {
  CLI::App app("Brings recordings into the form that Pallomir opens.", "pallomir-cli");
  app.require_subcommand(1);
  pallomir::Progress progress(std::cerr, pallomir::StandardErrorIsTerminal());

  pallomir::ImportRequest import;
  CLI::App* importCommand = app.add_subcommand("import", "Import a recording of the acquisition system");
  importCommand->add_option("--spikes", import.Spikes, "Spike file: .Ntt or .Nse")->required();
  importCommand->add_option("--video", import.Video, "Video tracking file: .Nvt");
  importCommand->add_option("--events", import.Events, "Events file: .Nev");
  importCommand->add_option("--out", import.Out, "Folder of the recording, made where it is missing")->required();
  importCommand->add_option("--pixels-per-cm", import.PixelsPerCm, "Scale of the video, written into Pos.p")
      ->check(CLI::PositiveNumber);
  importCommand->callback([&] { Print(ImportRecording(import, progress)); });

  pallomir::SampleRequest sample;
  CLI::App* sampleCommand = app.add_subcommand("sample", "Simulate a recording and import it");
  sampleCommand->add_option("folder", sample.Folder, "Folder of the recording, made where it is missing")->required();
  sampleCommand->add_option("--spikes", sample.Spikes, "How many spikes")
      ->capture_default_str()
      ->check(CLI::Range(uint64_t{1}, kMostSampleSpikes));
  sampleCommand->add_option("--seed", sample.Seed, "The same seed gives the same recording")->capture_default_str();
  sampleCommand->callback([&] { Print(MakeSample(sample, progress)); });

  std::string file;
  CLI::App* infoCommand = app.add_subcommand("info", "Say what a file is and what is odd about it");
  infoCommand->add_option("file", file, "The file")->required();
  infoCommand->callback([&] { std::cout << pallomir::DescribeFile(file, progress); });

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kWrongUsage;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // By the time that an error is told, Run() has left and its progress bar is gone.
  try {
    return Run(argc, argv);
  } catch (const std::bad_alloc&) {
    std::cerr << "There is not enough memory.\n";
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
  }
  return kFailure;
}
