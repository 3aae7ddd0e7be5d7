// Text, bytes and times as a page holds them.
#include "convert/page/PageText.h"

#include <gtest/gtest.h>

#include <array>

namespace velorin::convert {
namespace {

std::string everyByte() {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    return all;
}

TEST(EscapedText, KeepsMarkupFromBeingMarkup) {
    EXPECT_EQ(escapedText("<script>\"a\" & 'b'"), "&lt;script&gt;&quot;a&quot; &amp; &#39;b&#39;");
}

TEST(EscapedText, KeepsLettersOfEveryLanguage) {
    EXPECT_EQ(escapedText("Gr\xC3\xBC\xC3\x9F"
                          "e \xE9\x9F\xB3 \xF0\x9F\x8E\xB5"),
              "Gr\xC3\xBC\xC3\x9F"
              "e \xE9\x9F\xB3 \xF0\x9F\x8E\xB5");
}

TEST(EscapedText, HasNoControlCharactersAndIsValidWhateverTheBytes) {
    const std::string text = escapedText(everyByte());
    // 0 to 31 and 127 are control characters, 128 to 255 begin nothing valid in this order.
    std::string expected;
    const std::string replacement = "\xEF\xBF\xBD";
    for (int i = 0; i < 32; ++i)
        expected += replacement;
    expected +=
        " !&quot;#$%&amp;&#39;()*+,-./0123456789:;&lt;=&gt;?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
        "abcdefghijklmnopqrstuvwxyz{|}~";
    for (int i = 0; i < 129; ++i)
        expected += replacement;
    EXPECT_EQ(text, expected);
}

TEST(EscapedText, ReplacesWhatIsNoCharacterOfUnicode) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(escapedText("a\xC3"), "a" + replacement);            // cut off
    EXPECT_EQ(escapedText("\xC0\xBC"), replacement + replacement); // a long form of <
    EXPECT_EQ(escapedText("\xED\xA0\x80"), replacement + replacement + replacement); // a surrogate
}

TEST(Base64, IsThatOfTheStandard) {
    EXPECT_EQ(base64(""), "");
    EXPECT_EQ(base64("f"), "Zg==");
    EXPECT_EQ(base64("fo"), "Zm8=");
    EXPECT_EQ(base64("foo"), "Zm9v");
    EXPECT_EQ(base64("foob"), "Zm9vYg==");
    EXPECT_EQ(base64("\xFB\xFF\xFE"), "+//+");
}

TEST(Base64, OfPiecesOfThreeBytesCanBeJoined) {
    const std::string all = everyByte();
    EXPECT_EQ(base64(all.substr(0, 99)) + base64(all.substr(99)), base64(all));
}

TEST(PercentEncoded, KeepsTheNumbersOfAScore) {
    EXPECT_EQ(percentEncoded("60,-1\r\n 66 \r\n"), "60,-1%0D%0A%2066%20%0D%0A");
}

TEST(PercentEncoded, KeepsTheLettersOfTheAlphabet) {
    EXPECT_EQ(percentEncoded("azAZ{`[@"), "azAZ%7B%60%5B%40");
}

TEST(PercentEncoded, ComesBackByteForByte) {
    const std::string text = percentEncoded(everyByte());
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        i += 2;
    }
    EXPECT_EQ(decoded, everyByte());
    EXPECT_EQ(text.find_first_of("\"'<>&#?"), std::string::npos);
}

TEST(ClockText, CountsMinutesAndHours) {
    EXPECT_EQ(clockText(0.0), "0:00");
    EXPECT_EQ(clockText(59.9), "0:59");
    EXPECT_EQ(clockText(725.0), "12:05");
    EXPECT_EQ(clockText(4325.0), "1:12:05");
    EXPECT_EQ(clockText(-1.0), "0:00");
}

TEST(ATemplate, IsFilledOnce) {
    const std::array values{TemplateValue{"a", "{{b}}"}, TemplateValue{"b", "2"}};
    EXPECT_EQ(filled("{{a}}-{{b}}-{{a}}", values), "{{b}}-2-{{b}}");
    EXPECT_EQ(filled("plain", values), "plain");
}

} // namespace
} // namespace velorin::convert
