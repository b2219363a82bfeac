#include "platform/regex.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace platform {
namespace {

constexpr std::uint32_t kMaxGroups = 31;
constexpr std::uint32_t kMaxBacktracks = 10'000'000;  // from one starting place
constexpr std::uint32_t kMaxHeapKiB = 64 * 1024;
constexpr std::size_t kFirstStack = 32 * 1024;
constexpr std::size_t kMaxStack = 8 * 1024 * 1024;

// The limits of PCRE2 hold for each starting place alone. With a pattern like "<a.*?</a>" a text made for the
// purpose has a million of them, each scanning all that follows. So the starting places are tried in short
// windows, and after a window that brought nothing the time spent is looked at. A window is the shorter the
// longer the text, so that one window's work is bounded too.
constexpr std::size_t kWindowWork = std::size_t{1} << 31;
constexpr std::size_t kMinWindow = 64;
constexpr std::size_t kMaxWindow = 4096;

// Time of this thread's own, so that a busy machine does not change what is found.
constexpr double kMaxSeconds = 1;

double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

PCRE2_SPTR codeUnits(std::string_view text) {
  // A default view has no data, which PCRE2 takes for an error.
  return reinterpret_cast<PCRE2_SPTR>(text.data() == nullptr ? "" : text.data());
}

/// What PCRE2 writes to while it matches; each thread has its own, so that patterns can be shared.
struct Workspace {
  Workspace()
      : data(pcre2_match_data_create(kMaxGroups + 1, nullptr)),
        context(pcre2_match_context_create(nullptr)),
        stack(pcre2_jit_stack_create(kFirstStack, kMaxStack, nullptr)) {
    if (data == nullptr || context == nullptr) std::abort();  // out of memory
    pcre2_set_match_limit(context, kMaxBacktracks);
    pcre2_set_depth_limit(context, kMaxBacktracks);
    pcre2_set_heap_limit(context, kMaxHeapKiB);
    // Without a stack, where there is no JIT, nothing is lost: the interpreter uses the heap.
    if (stack != nullptr) pcre2_jit_stack_assign(context, nullptr, stack);
  }
  ~Workspace() {
    pcre2_jit_stack_free(stack);
    pcre2_match_context_free(context);
    pcre2_match_data_free(data);
  }
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  pcre2_match_data* data;
  pcre2_match_context* context;
  pcre2_jit_stack* stack;
};

Workspace& threadWorkspace() {
  thread_local Workspace workspace;
  return workspace;
}

/// One search, window by window.
class Search {
 public:
  Search(const pcre2_code* code, std::string_view text) : m_code(code), m_text(text) {}

  /// Finds the first match at or behind `from`: start and end of each group, the whole match first; null for
  /// none.
  const std::size_t* first(std::size_t from) {
    const std::size_t window = std::clamp(kWindowWork / (m_text.size() + 1), kMinWindow, kMaxWindow);
    while (from <= m_text.size()) {
      const std::size_t lastStart = from + window;
      pcre2_set_offset_limit(m_workspace.context, lastStart);
      const int count = pcre2_match(m_code, codeUnits(m_text), m_text.size(), from, 0, m_workspace.data,
                                    m_workspace.context);
      if (count > 0) return pcre2_get_ovector_pointer(m_workspace.data);
      // Any other error is a limit that was reached: to go on would only reach it again.
      if (count != PCRE2_ERROR_NOMATCH || timeIsUp()) return nullptr;
      from = characterStart(lastStart + 1);
    }
    return nullptr;
  }

 private:
  bool timeIsUp() {
    // Most texts need one window only, and so no clock.
    const double now = threadSeconds();
    if (m_began < 0) m_began = now;
    return now - m_began > kMaxSeconds;
  }

  /// `offset`, or the end of the UTF-8 sequence that it lies in.
  std::size_t characterStart(std::size_t offset) const {
    while (offset < m_text.size() && (static_cast<unsigned char>(m_text[offset]) & 0xC0) == 0x80) ++offset;
    return offset;
  }

  const pcre2_code* m_code;
  std::string_view m_text;
  Workspace& m_workspace = threadWorkspace();
  double m_began = -1;
};

[[noreturn]] void rejectPattern(std::string_view pattern, const char* reason) {
  std::fprintf(stderr, "Faulty pattern %.*s: %s\n", static_cast<int>(pattern.size()), pattern.data(), reason);
  std::abort();
}

}  // namespace

struct Regex::Impl {
  /// Takes over what pcre2_compile() made.
  explicit Impl(pcre2_code* compiled) : code(compiled) {
    pcre2_pattern_info(code, PCRE2_INFO_CAPTURECOUNT, &groupCount);
    // Where the system forbids making code at run time, the interpreter does the same more slowly.
    static_cast<void>(pcre2_jit_compile(code, PCRE2_JIT_COMPLETE));
  }
  ~Impl() { pcre2_code_free(code); }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  /// Null for a faulty pattern; `error` is the reason then.
  static std::unique_ptr<Impl> compile(std::string_view pattern, RegexCase mode, int& error) {
    std::uint32_t options = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_USE_OFFSET_LIMIT;
    if (mode == RegexCase::insensitive) options |= PCRE2_CASELESS;
    pcre2_compile_context* context = pcre2_compile_context_create(nullptr);
    pcre2_set_newline(context, PCRE2_NEWLINE_LF);
    std::size_t errorOffset = 0;
    pcre2_code* code =
        pcre2_compile(codeUnits(pattern), pattern.size(), options, &error, &errorOffset, context);
    pcre2_compile_context_free(context);
    return code == nullptr ? nullptr : std::make_unique<Impl>(code);
  }

  pcre2_code* code = nullptr;
  std::uint32_t groupCount = 0;
};

Regex::Regex(std::string_view pattern, RegexCase mode) {
  int error = 0;
  m_impl = Impl::compile(pattern, mode, error);
  if (!m_impl) {
    PCRE2_UCHAR reason[256];
    pcre2_get_error_message(error, reason, sizeof reason);
    rejectPattern(pattern, reinterpret_cast<const char*>(reason));
  }
  if (m_impl->groupCount > kMaxGroups) rejectPattern(pattern, "too many groups");
}

Regex::Regex(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}

std::optional<Regex> Regex::compile(std::string_view pattern, RegexCase mode) {
  int error = 0;
  auto impl = Impl::compile(pattern, mode, error);
  if (!impl || impl->groupCount > kMaxGroups) return std::nullopt;
  return Regex(std::move(impl));
}

Regex::~Regex() = default;
Regex::Regex(Regex&&) noexcept = default;
Regex& Regex::operator=(Regex&&) noexcept = default;

std::optional<RegexMatch> Regex::find(std::string_view text, std::size_t from) const {
  const std::size_t* bounds = Search(m_impl->code, text).first(from);
  if (bounds == nullptr) return std::nullopt;
  RegexMatch match;
  match.offset = bounds[0];
  match.whole = text.substr(bounds[0], bounds[1] - bounds[0]);
  match.groups.resize(m_impl->groupCount);
  for (std::size_t i = 0; i < match.groups.size(); ++i) {
    const std::size_t* group = bounds + 2 * (i + 1);
    if (group[0] != PCRE2_UNSET) match.groups[i] = text.substr(group[0], group[1] - group[0]);
  }
  return match;
}

std::size_t findText(std::string_view text, std::string_view what, std::size_t from) {
  if (from > text.size() || what.size() > text.size() - from) return std::string_view::npos;
  if (what.empty()) return from;
  const void* found = memmem(text.data() + from, text.size() - from, what.data(), what.size());
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

std::string replaceText(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  std::size_t done = 0;
  if (!what.empty()) {
    for (std::size_t found; (found = findText(text, what, done)) != std::string_view::npos;) {
      result.append(text, done, found - done).append(with);
      done = found + what.size();
    }
  }
  return result.append(text, done);
}

}  // namespace platform
