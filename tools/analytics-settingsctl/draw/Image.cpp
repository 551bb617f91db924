#include "draw/Image.h"

#include "Failure.h"

namespace settingsctl {
namespace {

unsigned Byte(const std::string& bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

/// Two bytes, the higher one first, as both formats have them.
int Number(const std::string& bytes, std::size_t at) {
  return static_cast<int>(Byte(bytes, at) << 8U | Byte(bytes, at + 1));
}

bool StartsWith(const std::string& bytes, const std::string& start) {
  return bytes.compare(0, start.size(), start) == 0;
}

/// The first piece of a PNG file is its header; no side is longer than two bytes can say.
Size SizeOfPng(const std::string& bytes) {
  const bool isHeader = bytes.compare(12, 4, "IHDR") == 0;
  const bool isUsual = Number(bytes, 16) == 0 && Number(bytes, 20) == 0;
  if (!isHeader || !isUsual) return {0, 0};
  return {Number(bytes, 18), Number(bytes, 22)};
}

/// Markers that start a frame, and so give its size; the others in their range mean other things.
bool IsFrameMarker(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Goes from segment to segment of a JPEG file up to the one that starts the frame.
Size SizeOfJpeg(const std::string& bytes) {
  std::size_t at = 2;
  while (at + 9 < bytes.size() && Byte(bytes, at) == 0xFF) {
    const unsigned marker = Byte(bytes, at + 1);
    if (IsFrameMarker(marker)) return {Number(bytes, at + 7), Number(bytes, at + 5)};
    const bool isFiller = marker == 0xFF;
    at += isFiller ? 1 : 2 + static_cast<std::size_t>(Number(bytes, at + 2));
  }
  return {0, 0};
}

char Letter(unsigned bits) {
  return "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"[bits & 0x3FU];
}

std::string Base64(const std::string& bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const unsigned three = Byte(bytes, at) << 16U | Byte(bytes, at + 1) << 8U | Byte(bytes, at + 2);
    text += {Letter(three >> 18U), Letter(three >> 12U), Letter(three >> 6U), Letter(three)};
  }
  const std::size_t missing = (3 - bytes.size() % 3) % 3;
  return text.replace(text.size() - missing, missing, missing, '=');
}

/// Whether the mark is there that ends an image of this format; further bytes may follow it.
bool HasEnd(const std::string& bytes, bool isPng) {
  const std::string end = isPng ? "IEND\xAE\x42\x60\x82" : "\xFF\xD9";
  return bytes.rfind(end) != std::string::npos;
}

}  // namespace

Image ReadImage(const Input& input) {
  const bool isPng = StartsWith(input.text, "\x89PNG\r\n\x1a\n") && input.text.size() > 24;
  const bool isJpeg = StartsWith(input.text, "\xFF\xD8\xFF");
  const Size size = isPng ? SizeOfPng(input.text) : isJpeg ? SizeOfJpeg(input.text) : Size{0, 0};
  if (size.width == 0 || size.height == 0) {
    throw Failure(input.name + ": is no PNG or JPEG image; convert it to one of them");
  }
  if (!HasEnd(input.text, isPng)) {
    throw Failure(input.name + ": is an image that was cut off; name a whole one");
  }
  const std::string type = isPng ? "image/png" : "image/jpeg";
  return {size, "data:" + type + ";base64," + Base64(input.text)};
}

}  // namespace settingsctl
