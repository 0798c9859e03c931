#include "Platform/Linux/X11/HiddenMark.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

TEST(HiddenMark, ReadsBackAsItWasWritten) {
    for (const HiddenMark& mark :
         {HiddenMark{u"run1"_s, {}, false, {}}, HiddenMark{u"run1"_s, 0, false, {}},
          HiddenMark{u"run1"_s, 4294967295, true, u"3: web  pages "_s},
          HiddenMark{u"run1"_s, 12, false, u"-"_s}})
        EXPECT_EQ(HiddenMark::fromText(mark.toText()), mark);
}

TEST(HiddenMark, IsNotReadFromOtherTexts) {
    for (const QString& text : {u""_s, u"run"_s, u" - - "_s, u"run - -"_s, u"run soon - "_s,
                                u"run -1 - "_s, u"run 4294967296 - "_s})
        EXPECT_EQ(HiddenMark::fromText(text), std::nullopt) << text.toStdString();
}

} // namespace
} // namespace tolvar
