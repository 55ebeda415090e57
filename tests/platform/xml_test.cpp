#include "platform/xml.h"

#include "support/bench.h"

using namespace zvr;
using std::string_view_literals::operator""sv;

namespace {

std::string FirstText(std::string_view document, std::string_view path) {
    const XmlDocument parsed = XmlDocument::Parse(document);
    const XmlElement found = parsed.First(path);
    return found ? std::string(found.Text()) : "(none)";
}

}  // namespace

TEST(Xml, FindsAPathAnywhereBelowARootOfAnyName) {
    constexpr std::string_view skin =
        "<skin><about><for-app-version>1.2</for-app-version></about>"
        "<general><width>800</width></general><phone><general><width>9</width></general></phone></skin>";
    EXPECT_EQ(FirstText(skin, "general/width"), "800");
    EXPECT_EQ(FirstText(skin, "//general/width"), "800");
    EXPECT_EQ(FirstText(skin, "phone/general/width"), "9");
    EXPECT_EQ(FirstText(skin, "skin/about/for-app-version"), "1.2");
    EXPECT_EQ(FirstText(skin, "//width"), "800");
    for (const char* none : {"general/height", "phone/width", "General/width", "eneral/width", "x/skin/about", "", "/",
                             "//", "general/", "/width", "general//width"}) {
        EXPECT_EQ(FirstText(skin, none), "(none)") << none;
    }
}

TEST(Xml, TakesTheFirstInDocumentOrder) {
    EXPECT_EQ(FirstText("<r><b><t>1</t></b><b><t>2</t></b></r>", "b/t"), "1");
    EXPECT_EQ(FirstText("<r><b/><b><t>2</t></b></r>", "b/t"), "2") << "the first b has none";
    // The outer a begins first, yet the inner one's child stands before the outer one's.
    EXPECT_EQ(FirstText("<a><x><a><b>inner</b></a></x><b>outer</b></a>", "a/b"), "inner");
    EXPECT_EQ(FirstText("<a><b>outer</b><x><a><b>inner</b></a></x></a>", "a/b"), "outer");
}

TEST(Xml, TextIsAllTextInside) {
    constexpr std::string_view document =
        "<r><t>a<!-- no -->b<![CDATA[<c>&amp;]]><u>d<v>e</v></u>&lt;f&#228;<?no no?></t><empty/><blank>  </blank></r>";
    EXPECT_EQ(FirstText(document, "t"), "ab<c>&amp;de<f\u00E4");
    EXPECT_EQ(FirstText(document, "empty"), "");
    EXPECT_EQ(FirstText(document, "u"), "de") << "nothing of what stands behind the element";
    EXPECT_EQ(XmlElement().Text(), "");
}

TEST(Xml, IsEmptyUnlessWellFormed) {
    for (const std::string_view text :
         {""sv, "  "sv, "text"sv, "<a></b>"sv, "<a/><b/>"sv, "<a/>tail"sv, "head<a/>"sv, "<!-- only -->"sv, "<a"sv,
          "<a>&#xD800;</a>"sv, "<a/>\0<b/>"sv,
          // What lenient readers take.
          "<a>R & B</a>"sv, "<a>R&B</a>"sv, "<a>&nbsp;</a>"sv, "<a>&amp</a>"sv, "<a x='1' x='2'/>"sv, "<a x='<'/>"sv,
          "<a>]]></a>"sv, "<a><!-- a -- b --></a>"sv, "<1a/>"sv, "\n<?xml version='1.0'?><a/>"sv, "<a>\x01</a>"sv,
          "<!DOCTYPE a SYSTEM 'x.dtd'><a>&nbsp;</a>"sv,
          "<!DOCTYPE a [<!ENTITY x SYSTEM '/etc/hostname'>]><a>&x;</a>"sv}) {
        const XmlDocument document = XmlDocument::Parse(text);
        EXPECT_TRUE(document.IsEmpty()) << text;
        EXPECT_FALSE(document.First("a")) << text;
    }
    EXPECT_EQ(FirstText("<!DOCTYPE a [<!ENTITY zvr 'z<b>V</b>R'>]><a>&zvr;!</a>", "a"), "zVR!");
    EXPECT_FALSE(XmlDocument::Parse("<?xml version='1.0'?>\n<!DOCTYPE a>\n<!-- c -->\n<a/>\n<!-- d -->\n").IsEmpty());
    EXPECT_TRUE(XmlDocument().IsEmpty());
    EXPECT_FALSE(XmlDocument().First("a"));
}

TEST(Xml, HonoursTheEncodingThatIsDeclaredOrRefusesItByName) {
    EXPECT_EQ(FirstText("<a>\xC3\xA4</a>", "a"), "\u00E4");
    EXPECT_EQ(FirstText("\xEF\xBB\xBF<a>\xC3\xA4</a>", "a"), "\u00E4");
    EXPECT_EQ(FirstText("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>", "a"), "\u00E4");
    EXPECT_EQ(FirstText("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA4</a>", "a"), "\u00C3\u00A4")
        << "also where it could be UTF-8";
    EXPECT_EQ(FirstText(std::string_view("\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0", 18), "a"), "\u00E4");
    EXPECT_EQ(FirstText(std::string_view("\xFE\xFF\0<\0a\0>\0\xE4\0<\0/\0a\0>", 18), "a"), "\u00E4");
    EXPECT_TRUE(XmlDocument::Parse("<a>\xE4</a>").IsEmpty()) << "nothing declared is UTF-8";
    EXPECT_EQ(XmlDocument::Parse("<?xml version='1.0' encoding='windows-1252'?><a/>").Fault().reason,
              "the encoding windows-1252 is not read; write the file as UTF-8");
}

TEST(Xml, TellsWhereElementsBeginAndWhatIsWrong) {
    const XmlDocument document = XmlDocument::Parse("<?xml version='1.0'?>\n<a>\n <b/></a>");
    EXPECT_EQ(document.Root().Name(), "a");
    EXPECT_EQ(document.First("a").Line(), 2);
    EXPECT_EQ(document.First("b").Line(), 3);
    EXPECT_EQ(XmlElement().Line(), 0);
    EXPECT_EQ(document.Fault().reason, "");
    for (const auto& [text, line, reason] :
         {std::tuple{"<skin>\n<a>\n</b></skin>", 3, "mismatched tag"},
          std::tuple{"<a>\n\n R & B</a>", 3, "& is written &amp;"},
          std::tuple{"<a>\n&nbsp;</a>", 2, "undefined entity &nbsp;"},
          std::tuple{"<a x='1'\n x='2'/>", 2, "duplicate attribute"},
          std::tuple{"<!DOCTYPE a SYSTEM 'x.dtd'>\n<a>&nbsp;</a>", 2, "undefined entity &nbsp;"}}) {
        const XmlDocument bad = XmlDocument::Parse(text);
        EXPECT_FALSE(bad.Root());
        EXPECT_EQ(bad.Fault().line, line) << text;
        EXPECT_NE(bad.Fault().reason.find(reason), std::string::npos) << bad.Fault().reason;
    }
}

TEST(Xml, StandsDeepNestingAndManyElements) {
    std::string begins;
    std::string ends;
    for (int depth = 0; depth < 300'000; ++depth) {
        begins += "<a>";
        ends += "</a>";
    }
    const XmlDocument document = XmlDocument::Parse(begins + "x" + ends);
    EXPECT_EQ(document.First("a/a/a").Text(), "x");
    EXPECT_FALSE(document.First("b/a"));
}

TEST(Xml, LimitsHoldForWhatEntitiesStandForToo) {
    constexpr XmlLimits limits{.bytes = 1000, .elements = 5};
    const auto reads = [&](std::string_view text) { return !XmlDocument::ParseUtf8(text, limits).IsEmpty(); };
    EXPECT_TRUE(reads("<r><a/><a/><a/><a/></r>"));
    EXPECT_FALSE(reads("<r><a/><a/><a/><a/><a/></r>"));
    EXPECT_FALSE(reads("<r a='1' b='1' c='1' d='1' e='1' f='1'/>"));
    EXPECT_TRUE(reads("<r>" + std::string(990, 'x') + "</r>"));
    EXPECT_FALSE(reads("<r>" + std::string(1000, 'x') + "</r>"));
    const std::string ten(100, 'x');
    for (const char* use :
         {"<r>&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;</r>", "<r a='&e;&e;&e;&e;&e;&e;' b='&e;&e;&e;&e;&e;&e;'/>"}) {
        EXPECT_FALSE(reads("<!DOCTYPE r [<!ENTITY e \"" + ten + "\">]>" + use)) << use;
    }
}
