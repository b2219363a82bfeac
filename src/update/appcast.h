// The list of versions that a publisher keeps: an appcast, which is RSS 2.0 with some elements more.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace update {

/// One version that is offered. Texts from the list are as their writers like: valid UTF-8 and no more.
struct Release {
  std::string version;             // isVersion(); this one is compared
  std::string shownVersion;        // one line of a hundred bytes at most; as `version` where none is given
  std::string minimumSystem = {};  // a version of the Linux kernel, isVersion(); empty when any will do
  std::string page = {};           // where it can be had, an https address; empty when none is given
  std::string notes = {};          // plain text in lines, at most some 64 KiB; may be empty
  std::string notesAddress = {};   // of a page with the notes, https; empty when none is given
};

struct Appcast {
  std::vector<Release> releases = {};  // in the order of the list
  std::string problem = {};            // why the list could not be read, one sentence without its full stop
};

/// Reads an appcast (valid UTF-8). It has to be well-formed XML; with a problem there are no releases.
///
/// Of each item these are read, and of those that it has twice the first one counts:
///  - sparkle:version, the version as the program itself gives it. Where it is missing, or can't be compared,
///    sparkle:shortVersionString stands for it; an item without either is passed over.
///  - sparkle:shortVersionString, only to be shown.
///  - sparkle:minimumSystemVersion.
///  - link, the page where the version can be had.
///  - description, the notes as HTML or as plain text, or sparkle:releaseNotesLink, the address of a page.
///  - enclosure: where the item has no such elements, sparkle:version, sparkle:shortVersionString and
///    sparkle:minimumSystemVersion may be its attributes. One with sparkle:os is for that system: those for
///    others than Linux are passed over, and with them an item that has no other one.
///  - sparkle:channel: an item for one is passed over, since those are for people who have chosen it.
Appcast parseAppcast(std::string_view utf8);

}  // namespace update
