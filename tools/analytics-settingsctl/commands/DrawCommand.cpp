#include <filesystem>
#include <memory>
#include <sstream>
#include <system_error>

#include <analytics/ProfileDoc.h>

#include "Commands.h"
#include "Failure.h"
#include "commands/Vocabulary.h"
#include "draw/Picture.h"
#include "input/ProfileContents.h"
#include "input/SettingsOption.h"
#include "input/XmlText.h"
#include "output/FileWriting.h"
#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr int kLargestSide = 16384;

struct Arguments {
  std::string file;
  std::string output;
  std::string size;
  std::string background;
  std::string settings;
};

/// Reads "1280x720".
Size SizeOf(const std::string& text) {
  Size size = {0, 0};
  char separator = '\0';
  std::istringstream stream(text);
  stream >> size.width >> separator >> size.height;
  const bool isWhole = !stream.fail() && separator == 'x' && stream.peek() == EOF;
  const bool isUsual = size.width > 0 && size.width <= kLargestSide && size.height > 0 &&
                       size.height <= kLargestSide;
  if (isWhole && isUsual) return size;
  const std::string most = std::to_string(kLargestSide);
  throw Failure("--size " + text + " is no size: write width and height, such as 1280x720 and " +
                "no more than " + most + "x" + most);
}

PictureOptions OptionsOf(const Arguments& arguments, const Input& input) {
  PictureOptions options;
  options.title = "Analytics geometry of " + FitForXml(Printable(input.name));
  if (!arguments.size.empty()) options.size = SizeOf(arguments.size);
  if (!arguments.background.empty())
    options.background = ReadImage(ReadInput(arguments.background));
  return options;
}

/// The picture must not take the place of what it is made of.
void RequireOtherOutput(const Arguments& arguments) {
  for (const std::string& input : {arguments.file, arguments.background, arguments.settings}) {
    std::error_code absent;
    if (std::filesystem::equivalent(input, arguments.output, absent))
      throw Failure(arguments.output + ": is read for the picture; write it to another file");
  }
}

void Run(const Arguments& arguments) {
  RequireOtherOutput(arguments);
  LoadVocabulary(arguments.settings);
  const Input input = ReadInput(arguments.file);
  const PictureOptions options = OptionsOf(arguments, input);
  analytics::ProfileDoc profile;
  ParseProfile(profile, input);
  WriteFile(arguments.output, DrawPicture(DrawnOwners(ContentsOf(profile)), options));
}

void AddOptions(const Command& command, Arguments& arguments) {
  command.Add("FILE", arguments.file, "The profile; - is standard input").Required();
  command.Add("-o,--output", arguments.output, "The picture; - is standard output")
      .TypeName("OUT.svg")
      .Required();
  command.Add("--size", arguments.size, "Size of the camera's image, drawn pixel by pixel")
      .TypeName("WxH");
  command.Add("--background", arguments.background, "PNG or JPEG image to draw on")
      .TypeName("IMAGE");
  AddSettingsOption(command, arguments.settings);
}

}  // namespace

void AddDrawCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("draw", "Draw a profile's geometry as an SVG picture");
  AddOptions(command, *arguments);
  command.Footer(
      "Without --size the picture is as large as its background, or shows all geometry fitted.\n"
      "The background becomes part of the picture, which so stays one file.\n\n"
      "Examples:\n"
      "  analytics-settingsctl draw profile.xml -o profile.svg\n"
      "  analytics-settingsctl draw profile.xml -o profile.svg --size 1280x720\n"
      "  analytics-settingsctl draw profile.xml -o profile.svg --background snapshot.jpg");
  command.Callback([arguments] { Run(*arguments); });
}

}  // namespace settingsctl
