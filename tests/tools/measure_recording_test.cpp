#include "tools/cut/measure_recording.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/text_lines.h"
#include "sample_with_cut.h"
#include "support/recording_world.h"
#include "support/refusal.h"

namespace pallomir {
namespace {

using Json = nlohmann::json;

struct MeasuredRecording : SampleWithCut {
  static MeasureRequest Request() {
    return {.Recording = *folder / "sample/TT1/TT1.Ntt.parms",
            .Boundaries = *folder / "sample/TT1/cut.txt",
            .Positions = {},
            .Out = *folder / "table",
            .From = {},
            .To = {},
            .Chance = false};
  }

  static std::vector<std::string> Measure(const MeasureRequest& request) {
    std::ostringstream said;
    ProgressBar bar(said, false);
    return MeasureRecording(request, bar);
  }

  static Json Table() { return Json::parse(ReadText(*folder / "table.json")); }
};

/// The fields of the table's lines that are not comments.
std::vector<std::vector<std::string>> RowsOf(const std::string& csv) {
  std::vector<std::vector<std::string>> rows;
  TextLines lines(csv);
  for (TextLine line; lines.Take(line);) {
    if (line.Text.starts_with('#')) continue;
    auto& row = rows.emplace_back(1);
    for (const char c : line.Text) c == ',' ? void(row.emplace_back()) : row.back().push_back(c);
  }
  return rows;
}

TEST_F(MeasuredRecording, BothTablesHoldTheSameNumbers) {
  const auto said = Measure(Request());
  EXPECT_EQ(said, std::vector<std::string>{"Measured 2 clusters: " + *folder / "table" + ".csv and .json"});
  const std::string csv = ReadText(*folder / "table.csv");
  EXPECT_NE(csv.find("# BinCm: 2.5\r\n"), std::string::npos);
  EXPECT_NE(csv.find("# Units:"), std::string::npos);
  const auto rows = RowsOf(csv);
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[1][0] + " " + rows[2][0], "1 4");
  const Json json = Table();
  for (size_t k : {0, 1}) {
    ASSERT_EQ(rows[k + 1].size(), rows[0].size());
    for (size_t column = 0; column < rows[0].size(); ++column) {
      const Json& value = json["clusters"][k][rows[0][column]];
      const std::string& text = rows[k + 1][column];
      ASSERT_EQ(value.is_null(), text.empty()) << rows[0][column];
      if (text.empty()) continue;
      EXPECT_NEAR(std::stod(text), value.get<double>(), 1e-13 * std::abs(value.get<double>())) << rows[0][column];
    }
  }
  EXPECT_GT(json["clusters"][0]["spikes"].get<int>(), 100);
  EXPECT_TRUE(json["clusters"][0]["information"].is_number());
  EXPECT_TRUE(json["clusters"][0]["information_p"].is_null());
  EXPECT_GT(json["pairs"][0]["shared_points"].get<int>(), 0);
  EXPECT_EQ(json["pairs"].size(), 1);
}

TEST_F(MeasuredRecording, TheRangeOfRecordsAndTheSettingsCount) {
  Measure(Request());
  const auto all = Table()["clusters"][0]["spikes"].get<int>();
  MeasureRequest request = Request();
  request.From = 1000;
  request.To = 1999;
  request.Chance = true;
  folder->Put("sample/MeasureSettings", "Shifts 20\n");
  Measure(request);
  std::filesystem::remove(*folder / "sample/MeasureSettings");
  const Json json = Table();
  const auto some = json["clusters"][0]["spikes"].get<int>();
  EXPECT_TRUE(some > 0 && some < all) << some;
  EXPECT_EQ(json["settings"]["Shifts"], "20");
  const double p = json["clusters"][0]["information_p"].get<double>();
  EXPECT_NEAR(p * 21, std::round(p * 21), 1e-9) << "a share of 21 trains";
}

TEST_F(MeasuredRecording, SaysWhatIsMissingAndMeasuresTheRest) {
  const std::filesystem::path positions = *folder / "sample/Pos.p", aside = *folder / "sample/aside";
  std::filesystem::rename(positions, aside);
  const auto said = Measure(Request());
  std::filesystem::rename(aside, positions);
  ASSERT_EQ(said.size(), 2);
  EXPECT_TRUE(said[1].starts_with("There is no position file ")) << said[1];
  EXPECT_TRUE(Table()["clusters"][0]["information"].is_null());
  EXPECT_NE(Table()["clusters"][0]["remarks"]["information"], "");
  EXPECT_TRUE(Table()["clusters"][0]["snr"].is_number());

  const std::string before = ReadText(*folder / "table.csv");
  MeasureRequest request = Request();
  request.Boundaries = *folder / "nowhere";
  EXPECT_NE(Refusal([&] { Measure(request); }).find("nowhere"), std::string::npos);
  request = Request();
  request.From = 5000;
  EXPECT_NE(Refusal([&] { Measure(request); }), "");
  request = Request();
  request.Positions = request.Boundaries;
  EXPECT_NE(Refusal([&] { Measure(request); }), "");
  EXPECT_EQ(ReadText(*folder / "table.csv"), before);
}

}  // namespace
}  // namespace pallomir
