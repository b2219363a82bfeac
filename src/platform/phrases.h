// What the engine says to people, in their language. Documents and files are not written with this.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// Says by which name the texts of a class stand in the files of translations. Read by the tool that gathers
/// them.
#define VESKEL_TEXTS_OF(name)

namespace platform {

/// A language other than the engine's own English, and how it writes numbers and dates. Any thread.
class Language {
 public:
  virtual ~Language() = default;

  /// What `english` says, with its "%1" as they are. Where something is counted, `several` is the form for
  /// all numbers but one, and "%n" is replaced; else it is null.
  virtual std::string text(const char* english, const char* several, std::int64_t count) const = 0;

  virtual std::string number(std::int64_t number) const = 0;                 // "1,204"
  virtual std::string number(double number, int places) const = 0;           // "1.2"
  virtual std::string date(std::int64_t secondsSince1970) const = 0;         // here and now, without the time
  virtual std::string dateAndTime(std::int64_t secondsSince1970) const = 0;  // to the minute
};

class Phrases {
  VESKEL_TEXTS_OF(Phrases)

 public:
  /// From now on everything is said in `language`, which has to stay. To be called before other threads are
  /// started; a program that does not call it speaks English.
  static void speak(const Language& language);
  static const Language& language();

  /// The text in the user's language. `values` replace its "%1" to "%9", as they are.
  static std::string tr(const char* english);
  static std::string tr(const char* english, std::initializer_list<std::string_view> values);
  /// Likewise of a text that was marked before.
  static std::string tr(std::string_view marked);

  /// The one form or the other: `one` for the number 1, in English. "%n" in them is replaced by the number,
  /// and by the number with its thousands set apart where it is written "%Ln".
  static std::string tr(const char* one, const char* several, std::int64_t count);

  /// Marks a text that is said later: by tr() with what this returns. Texts that are counted are marked with
  /// any number.
  static constexpr const char* noop(const char* english) { return english; }
  static constexpr const char* noop(const char* one, const char*, int) { return one; }
};

/// `text` with its "%1" to "%9" replaced by the values, as they are.
std::string filled(std::string_view text, std::initializer_list<std::string_view> values);

}  // namespace platform
