#include <gtest/gtest.h>

#include <ostream>

#include "ui/common/Colors.h"

namespace {

struct ContrastCase {
    QRgb nBack;
    Qt::GlobalColor eText;
};
std::ostream& operator<<(std::ostream& stm, const ContrastCase& c)
{
    return stm << std::hex << c.nBack;
}

/// The expected colours follow from the contrast ratio of WCAG 2.1, worked out by hand for each
/// band of the SNR scale.
class TextColor : public testing::TestWithParam<ContrastCase> {};

TEST_P(TextColor, IsTheOneThatReadsBetter)
{
    EXPECT_EQ(TextColorOn(QColor(GetParam().nBack)), QColor(GetParam().eText));
}

INSTANTIATE_TEST_SUITE_P(SnrBands, TextColor,
                         testing::Values(ContrastCase{qRgb(255, 128, 255), Qt::black},
                                         ContrastCase{qRgb(255, 0, 255), Qt::black},
                                         ContrastCase{qRgb(192, 0, 192), Qt::white},
                                         ContrastCase{qRgb(128, 0, 128), Qt::white},
                                         ContrastCase{qRgb(0, 0, 255), Qt::white},
                                         ContrastCase{qRgb(0, 0, 128), Qt::white},
                                         ContrastCase{qRgb(128, 128, 128), Qt::black}));

TEST(ColorFromBgr, HasRedInTheLowByte)
{
    EXPECT_EQ(ColorFromBgr(0x102030), QColor(0x30, 0x20, 0x10));
    EXPECT_EQ(ColorFromBgr(0x00FF80FF).rgb(), qRgb(255, 128, 255));
    EXPECT_EQ(ColorFromBgr(0x00800000).rgb(), qRgb(0, 0, 128));
}

}  // namespace
