#include "crawler/known_endings.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"

namespace crawler {

namespace {

// Sorted. Types that a site's pages link to by the thousand; for every other one the server is asked.
constexpr std::array<std::string_view, 103> kOtherEndings = {
    "3gp",  "7z",    "aac",  "apk",  "asc",  "atom",  "avi",     "avif", "bin",         "bmp",  "bz2",
    "c",    "cab",   "cc",   "cpp",  "crt",  "css",   "csv",     "deb",  "diff",        "dmg",  "doc",
    "docx", "dvi",   "eot",  "eps",  "epub", "exe",   "flac",    "flv",  "gif",         "go",   "gz",
    "h",    "hpp",   "ico",  "ics",  "iso",  "jar",   "java",    "jpeg", "jpg",         "js",   "json",
    "jxl",  "key",   "m3u8", "m4a",  "m4v",  "map",   "md5",     "mid",  "mjs",         "mkv",  "mobi",
    "mov",  "mp3",   "mp4",  "mpeg", "mpg",  "msi",   "numbers", "odg",  "odp",         "ods",  "odt",
    "oga",  "ogg",   "ogv",  "opus", "otf",  "pages", "patch",   "pdf",  "png",         "pptx", "ps",
    "py",   "rar",   "rpm",  "rss",  "rtf",  "sh",    "sha256",  "sig",  "svg",         "svgz", "tar",
    "tex",  "tgz",   "tif",  "tiff", "ttf",  "wasm",  "wav",     "webm", "webmanifest", "webp", "wmv",
    "woff", "woff2", "xls",  "xlsx"};

}  // namespace

bool hasKnownOtherEnding(std::string_view path) {
  static_assert(std::is_sorted(kOtherEndings.begin(), kOtherEndings.end()));
  const std::string_view file = path.substr(path.rfind('/') + 1);
  const std::size_t dot = file.rfind('.');
  if (dot == std::string_view::npos) return false;
  return std::binary_search(kOtherEndings.begin(), kOtherEndings.end(),
                            std::string_view(platform::lowerAscii(file.substr(dot + 1))));
}

}  // namespace crawler
