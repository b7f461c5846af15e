#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/recorded/angle_header.h"
#include "tools/cut/measure_recording.h"
#include "tools/figures.h"
#include "tools/import/import_recording.h"
#include "tools/info/describe_file.h"
#include "tools/progress_bar.h"
#include "tools/sample/make_sample.h"

namespace {

constexpr int kFailure = 1;
constexpr int kWrongUsage = 2;
constexpr int kStopped = 130;
constexpr uint64_t kMostSampleSpikes = 50'000'000;
constexpr uint64_t kMostSampleMinutes = 10'000;

/// An option that is a path, as the shell writes it.
CLI::Option* AddPath(CLI::App& command, const std::string& name, std::filesystem::path& path, const std::string& what) {
  return command.add_option_function<std::string>(
      name, [&path](const std::string& text) { path = text; }, what);
}

void Print(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) std::cout << pallomir::Escaped(line) << "\n";
}

/// How the video file measures angles, and whether they are meaningful.
void AddAngleOptions(CLI::App& command, CLI::Option* video, pallomir::ImportRequest& import) {
  const auto takeZero = [&import](const std::string& text) {
    const auto zero = pallomir::AngleZeroFromText(text);
    if (!zero) throw CLI::ValidationError("--angle-zero", text + " is neither +x, +y, -x, -y nor a number");
    import.Angles.Zero = *zero;
  };
  CLI::Option* zero = command.add_option_function<std::string>(
      "--angle-zero", takeZero,
      "Where the head points at angle 0: +x, +y, -x, -y, or degrees from +x towards +y; default +y");
  const auto takeSense = [&import](const std::string& text) { import.Angles.Clockwise = text == "cw"; };
  CLI::Option* sense =
      command
          .add_option_function<std::string>(
              "--angle-sense", takeSense, "cw: angles increase from +y towards +x; ccw: from +x towards +y; default cw")
          ->check(CLI::IsMember({"cw", "ccw"}));
  CLI::Option* up =
      command.add_flag("--y-up", import.Angles.YUp,
                       "The y of the angles, unlike that of the positions, increases upward in the video image");
  CLI::Option* none = command.add_flag_callback(
      "--no-angle", [&import] { import.HasAngles = false; }, "The angles of the video file are meaningless");
  for (CLI::Option* option : {zero, sense, up}) option->needs(video)->excludes(none);
  none->needs(video);
}

void AddImport(CLI::App& app, pallomir::ImportRequest& import) {
  CLI::App* command = app.add_subcommand("import", "Import a recording of the acquisition system");
  AddPath(*command, "--spikes", import.Spikes, "Spike file: .Ntt or .Nse")->required();
  CLI::Option* video = AddPath(*command, "--video", import.Video, "Video tracking file: .Nvt");
  AddPath(*command, "--events", import.Events, "Events file: .Nev");
  AddPath(*command, "--out", import.Out, "Folder of the recording; created if it does not exist")->required();
  command->add_option("--pixels-per-cm", import.PixelsPerCm, "Scale of the video, written to Pos.p")
      ->check(CLI::PositiveNumber)
      ->needs(video);
  AddAngleOptions(*command, video, import);
  command->add_flag("--replace", import.Replace, "Replace existing files with other contents");
}

void AddMeasure(CLI::App& app, pallomir::MeasureRequest& measure) {
  CLI::App* command = app.add_subcommand("measure", "Measure the clusters of a cut, into a table");
  AddPath(*command, "recording", measure.Recording, "Parameter file: .Ntt.parms")->required();
  AddPath(*command, "--boundaries", measure.Boundaries, "Boundaries file")->required();
  AddPath(*command, "--positions", measure.Positions, "Position file; default Pos.p, one folder above");
  AddPath(*command, "--out", measure.Out, "Name of the table, without extension; default measures, beside it");
  command->add_option("--from", measure.From, "First record; default 0");
  command->add_option("--to", measure.To, "Last record; default the last one");
  command->add_flag("!--no-chance", measure.Chance, "Do not compare with chance, which takes seconds per cluster");
}

int Run(int argc, char** argv) {
  CLI::App app("Imports recordings for Pallomir.", "pallomir-cli");
  app.set_version_flag("--version", "pallomir-cli " PALLOMIR_VERSION, "Print the version");
  app.require_subcommand(1);
  pallomir::ProgressBar progress(std::cerr, pallomir::StandardErrorIsTerminal());

  pallomir::ImportRequest import;
  AddImport(app, import);
  app.get_subcommand("import")->callback([&] { Print(ImportRecording(import, progress).Lines()); });

  pallomir::SampleRequest sample;
  CLI::App* sampleCommand = app.add_subcommand("sample", "Simulate a recording and import it");
  AddPath(*sampleCommand, "folder", sample.Folder, "Folder of the recording; created if it does not exist")->required();
  sampleCommand->add_option("--spikes", sample.Spikes, "Number of spikes")
      ->capture_default_str()
      ->check(CLI::Range(uint64_t{1}, kMostSampleSpikes));
  sampleCommand->add_option("--seed", sample.Seed, "The same seed gives the same recording")->capture_default_str();
  sampleCommand
      ->add_option("--minutes", sample.Minutes, "Length of the recording; longer beyond 15 000 spikes per minute")
      ->capture_default_str()
      ->check(CLI::Range(uint64_t{1}, kMostSampleMinutes));
  sampleCommand->add_flag("--replace", sample.Replace, "Continue even if the folder is not empty");
  sampleCommand->callback([&] { Print(MakeSample(sample, progress).Lines()); });

  pallomir::MeasureRequest measure;
  AddMeasure(app, measure);
  app.get_subcommand("measure")->callback([&] { Print(MeasureRecording(measure, progress)); });

  std::filesystem::path file;
  CLI::App* infoCommand = app.add_subcommand("info", "Describe a file and what is odd about it");
  AddPath(*infoCommand, "file", file, "The file")->required();
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
  pallomir::HeedRequestsToStop();
  // Catch errors here, after Run() has returned and removed its progress bar.
  try {
    return Run(argc, argv);
  } catch (const pallomir::Interrupted&) {
    std::cerr << "Stopped; no incomplete file was left behind.\n";
    return kStopped;
  } catch (const std::bad_alloc&) {
    std::cerr << "There is not enough memory.\n";
  } catch (const std::exception& error) {
    std::cerr << pallomir::Escaped(error.what()) << "\n";
  }
  return kFailure;
}
