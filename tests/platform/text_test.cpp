#include "platform/text.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using namespace std::string_literals;

const std::string kBad = "\xEF\xBF\xBD";

TEST(FoldCase, MakesTextsEqualThatDifferInCaseAlone) {
  EXPECT_EQ(foldCase("AbZ[`{@ 09"), "abz[`{@ 09");
  EXPECT_EQ(foldCase("I\u0130"), "ii\u0307");  // by no locale's rules
  EXPECT_EQ(foldCase("A\xFFZ\xC3"), "a" + kBad + "z" + kBad);
}

TEST(DecodeUtf8, ReplacesWhatIsBad) {
  EXPECT_EQ(decodeUtf8("\xEF\xBB\xBFx\xEF\xBB\xBF"), "x\xEF\xBB\xBF");
  EXPECT_EQ(decodeUtf8("\xF0\x9F\x98z\xC3"), kBad + "z" + kBad);
  EXPECT_EQ(decodeUtf8("\xED\xA0\x80"), kBad + kBad + kBad);  // a surrogate
}

TEST(DecodePage, ChoosesTheEncodingAsBrowsersDo) {
  // One letter in three encodings: what comes out tells which one was taken.
  const std::string kLetter = "\u00E4";          // the right reading of the bytes C3 A4
  const std::string kWindows = "\u00C3\u00A4";   // that of windows-1252
  const std::string kCyrillic = "\u0413\u00A4";  // that of windows-1251
  const std::string utf8Meta = "<meta charset=utf-8>";
  const std::string longHead = "<!DOCTYPE html><HTML lang=x>\n<head/><link rel=x><object></object><style>" +
                               std::string(1024, '{') + "</style>";
  const std::string cases[][4] = {
      {"header in other forms", "", "text/html ;x=\";charset=big5\"; CharSet = \"UTF\\-8\" ;y", kLetter},
      {"the header's first one", "", "text/html;charset=windows-1251;charset=utf-8", kCyrillic},
      {"two labels in one", utf8Meta, "text/html; charset=\"latin1 l1\"", kLetter},
      {"the header before the page", utf8Meta, "text/html; charset=windows-1251", kCyrillic},
      {"the mark before the header", "\xEF\xBB\xBF", "text/html; charset=windows-1251", kLetter},
      {"meta in other forms", "<p><META/name='x'  CHARSET\n= 'UTF8' >", "", kLetter},
      {"content without http-equiv", "<meta content='text/html; charset=utf-8'>", "", kWindows},
      {"content with more words", "<meta http-equiv=content-type content='charset charset = utf-8 x'>", "",
       kLetter},
      {"an attribute twice", "<meta charset=windows-1251 charset=utf-8>", "", kCyrillic},
      {"an unknown meta, then a known one", "<meta charset=x><meta charset=utf-8>", "", kLetter},
      {"UTF-16 in a meta cannot be", "<meta charset=utf-16>", "", kLetter},
      {"behind what begins nothing", "< <" + utf8Meta, "", kLetter},
      {"in a comment", "<!-- <meta charset=utf-8> -->", "", kWindows},
      {"in an open comment", "<!-- <meta charset=utf-8>", "", kWindows},
      {"in an attribute", "<a title='<meta charset=utf-8>'>", "", kWindows},
      {"just within the start", std::string(1024 - utf8Meta.size(), ' ') + utf8Meta, "", kLetter},
      {"behind the start, still in the head", longHead + utf8Meta, "", kLetter},
      {"from the start to behind it", std::string(1025 - utf8Meta.size(), ' ') + utf8Meta, "", kLetter},
      {"behind the start and the head", longHead + "</head>" + utf8Meta, "", kWindows},
      {"behind the start and what no head holds", "<p>" + longHead + utf8Meta, "", kWindows},
      {"in a title behind the start", longHead + "<title>" + utf8Meta + "<p></title>", "", kWindows},
      {"behind what looks like the body", longHead + "<script>'<p></p>'</SCRIPT>" + utf8Meta, "", kLetter},
      {"just within the 64 KB of a head", std::string(65536 - utf8Meta.size(), ' ') + utf8Meta, "", kLetter},
      {"behind the 64 KB of a head", std::string(65537 - utf8Meta.size(), ' ') + utf8Meta, "", kWindows},
      {"an XML declaration", "<?xml version='1.0' encoding = \"utf-8\"?>", "", kLetter},
  };
  for (const auto& [name, head, contentType, letter] : cases) {
    SCOPED_TRACE(name);
    const std::string kept = head.starts_with('\xEF') ? "" : head;
    EXPECT_EQ(decodePage(head + "\xC3\xA4", contentType), kept + letter);
  }
}

TEST(DecodePage, ReadsTheSetsOfTheWeb) {
  const std::string cases[][3] = {
      {"us-ascii", "\x80\x81\x8D\x9D\x9F\xE4", "\u20AC\u0081\u008D\u009D\u0178\u00E4"},
      {"iso-8859-3", "\xA5", kBad},
      {"iso-8859-16", "\x85\xA0\xA4\xAD\xFE\xFF", "\u0085\u00A0\u20AC\u00AD\u021B\u00FF"},
      {"x-user-defined", "a\x80\xFF", "a\uF780\uF7FF"},
      {"gb2312", "\xC4\xE3\x80\xFF\x81<", "\u4F60\u20AC" + kBad + kBad + "<"},
      {"big5", "\xA7\x41\x87\x40\x80<", "\u4F60\u43F0" + kBad + "<"},
      {"sjis", "\x93\xFA\x81\x60\xB1\x5C\x7E\xA0\x81", "\u65E5\uFF5E\uFF71\\~" + kBad + kBad},
      {"iso-2022-jp", "\x1B$BF|\x1B(Bz", "\u65E5z"},
      {"utf-16", "z\0=\xD8\0\xDE\0\xDC\0\xD8"s, "z\U0001F600" + kBad + kBad},
  };
  for (const auto& [label, bytes, expected] : cases) {
    SCOPED_TRACE(label);
    EXPECT_EQ(decodePage(bytes, "text/html; charset=" + label), expected);
  }
}

TEST(DecodePage, TakesOffOneMark) {
  EXPECT_EQ(decodePage("\xEF\xBB\xBF\xEF\xBB\xBFx", ""), "\xEF\xBB\xBFx");
  EXPECT_EQ(decodePage("\xFF\xFE\xE4\0z\0"s, "text/html; charset=utf-8"), "\u00E4z");
  EXPECT_EQ(decodePage("\xFE\xFF\0\xE4\0z"s, ""), "\u00E4z");
  EXPECT_EQ(decodePage("", "text/html"), "");
}

TEST(DecodePage, EndsSoonAfterAStop) {
  std::stop_source stop;
  stop.request_stop();
  std::string switches;  // each costs as much as many characters
  while (switches.size() < 1u << 20) switches += "\x1B$B\x1B(B\xFF";
  for (const char* set : {"iso-2022-jp", "utf-8", "utf-16"}) {
    EXPECT_LT(decodePage(switches, "text/html; charset="s + set, stop.get_token()).size(), 1000u) << set;
  }
}

TEST(MimeType, IsWhatStandsBeforeTheParameters) {
  EXPECT_EQ(mimeType(" Text/HTML ; charset=utf-8"), "text/html");
  EXPECT_EQ(mimeType(" ; charset=utf-8"), "");
}

}  // namespace
}  // namespace platform
