// Addresses as we read them and as the web engine does: links and the pages that they stand on, made of
// pieces and changed at random.
#include <QRegularExpression>
#include <algorithm>
#include <random>

#include "script_engine.h"
#include "web/url.h"
#include "window_test.h"

namespace {

/// Writes links and pages, the same for the same seed.
class Writer {
 public:
  explicit Writer(unsigned seed) : m_random(seed) {}

  QString page() {
    return one({"http://h.test/a/b/c?q#f", "https://u:p@h.test:8080/a/", "http://h.test",
                "ftp://h.test/%7E/x", "ws://h.test/x/../y", "mailto:a@b.test?q"});
  }

  QString link() {
    QString text = below(2) == 0 ? one({"", "", "http:", "https:", "1http:", "."}) : start();
    if (below(2) == 0) {
      text += some(6, {"/", "/", "\\", ".", "..", "%2e", "%2E.", "x", "a b", ":", "%zz", "'`", "{}", "\"<>",
                       "é", "😀", ";", "@", "\x7F"});
    }
    if (below(3) == 0)
      text += u'?' + some(4, {"a=1", "&", "?", "/../", "'", "\"", "`", "\\", "é", "%", "^|", " "});
    if (below(4) == 0) text += u'#' + some(3, {"x", "#", " ", "<", "`", "\"", "é", "^", "'"});
    return below(2) == 0 ? text : broken(text);
  }

 private:
  /// Scheme, user, host and port.
  QString start() {
    QString text =
        one({"", "", "http:", "HTTPS:", "ftp:", "wss:"}) + one({"/", "//", "//", "///", "\\\\", "/\\"});
    if (below(3) == 0) text += one({"u@", "u:p@", ":@", "@", "a:b@c@", "%01'|@", ":é@"});
    text += some(3, {"h", "H.test", ".", "..", "%41", "%2e", "xn--bcher-kva", "ü", "。", "1", "0x7f", "08",
                     "256", "[::1]", "[1::0:0:A0:5]", "-", "_", "localhost"});
    if (below(3) == 0) text += one({":", ":80", ":0443", ":21", ":65536", ":8a"});
    return text + one({"", "/", "\\"});
  }

  /// With letters gone and put in.
  QString broken(QString text) {
    for (int changes = below(3); changes >= 0; --changes) {
      const int at = below(static_cast<int>(text.size()) + 1);
      if (below(2) == 0) text.remove(at, 1);
      if (below(2) == 0)
        text.insert(std::min<qsizetype>(at, text.size()),
                    one({"\t", "\n", "\r", " ", "\x01", "/", "\\", "?", "#", "@", ":", "[", "]", ".", "x"}));
    }
    // Halves of a pair become what they are in UTF-8.
    return QString::fromUtf8(text.toUtf8());
  }

  int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

  QString one(std::initializer_list<const char*> choices) {
    return QString::fromUtf8(*(choices.begin() + below(static_cast<int>(choices.size()))));
  }

  QString some(int most, std::initializer_list<const char*> choices) {
    QString text;
    for (int left = below(most + 1); left > 0; --left) text += one(choices);
    return text;
  }

  std::mt19937 m_random;
};

constexpr std::string_view kReadByEngine = R"(([link, page]) => {
  try { return new URL(link, page).href } catch { return '' }
})";

QString readByUs(const QString& link, const QString& page) {
  const std::optional<web::Url> base = web::parseUrl(platform::toUtf8(page));
  const std::optional<web::Url> url = web::parseUrl(platform::toUtf8(link), base ? &*base : nullptr);
  return url ? platform::toQString(url->href()) : QString();
}

// The engine is a few years older than what the Standard says now. It has the parts of an address at the same
// places, but:

/// - decodes what need not be encoded, and encodes three characters more;
QString comparable(QString href) {
  static const QRegularExpression kUnreserved(
      QStringLiteral("%(?=2[DEde]|3\\d|[46][1-9A-Fa-f]|[57][\\dAa]|5[Ff]|7[Ee])"));
  for (qsizetype at = 0; (at = href.indexOf(kUnreserved, at)) >= 0; ++at)
    href.replace(at, 3, QChar(href.mid(at + 1, 2).toInt(nullptr, 16)));
  for (const char c : {'|', '\'', '^'})
    href.replace(QLatin1Char(c), QStringLiteral("%%1").arg(int{c}, 0, 16).toUpper());
  return href;
}

/// - has another opinion of odd characters in hosts, and of all that follows a scheme it does not know.
bool isReadOtherwise(const QString& href) {
  static const QRegularExpression kKnownScheme(QStringLiteral("^(https?|ftp|wss?):"));
  static const QRegularExpression kOddHost(
      QStringLiteral("^[a-z]+://([^/?#]*@)?+[^/?#@]*[^a-z0-9.:_\\[\\]/?#@-]"));
  return !href.isEmpty() && (!href.contains(kKnownScheme) || href.contains(kOddHost));
}

class UrlEngineTest : public QObject {
  Q_OBJECT

  window_tests::ScriptEngine m_engine;

 private slots:
  void readsAsTheEngineDoes() {
    constexpr int kBatches = 10;
    constexpr int kLinks = 2000;
    int same = 0;
    int sameFailures = 0;
    for (int batch = 0; batch < kBatches; ++batch) {
      Writer writer(static_cast<unsigned>(batch));
      QJsonArray links;
      for (int i = 0; i < kLinks; ++i) links.append(QJsonArray{writer.link(), writer.page()});
      const QJsonArray read = m_engine.map(kReadByEngine, links);
      QCOMPARE(read.size(), kLinks);
      for (int i = 0; i < kLinks; ++i) {
        const QString ours = readByUs(links[i][0].toString(), links[i][1].toString());
        const QString theirs = read[i].toString();
        if (isReadOtherwise(ours) || isReadOtherwise(theirs)) continue;
        (ours.isEmpty() ? sameFailures : same) += 1;
        if (comparable(ours) != comparable(theirs))
          QFAIL(window_tests::asText({links[i], ours, theirs}).c_str());
      }
    }
    QVERIFY2(same > kBatches * kLinks / 2 && sameFailures > kBatches * kLinks / 5, "too few are compared");
  }
};

}  // namespace

int main(int argc, char** argv) {
  return window_tests::run<UrlEngineTest>(argc, argv);
}

#include "url_engine_test.moc"
