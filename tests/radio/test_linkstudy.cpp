#include "radio/linkscene.h"
#include "radio/linkstudy.h"

#include <gtest/gtest.h>

TEST(LinkStudy, HoldsTheChoiceTheNamesAndTheAnalysis)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    const LinkStudy& study = scene.study;
    EXPECT_TRUE(study.done);
    EXPECT_EQ(study.a, 1);
    EXPECT_EQ(study.b, 2);
    EXPECT_EQ(study.net, 1);
    EXPECT_EQ(study.namea, "Nord");
    EXPECT_EQ(study.nameb, "Sud");
    Link link;
    LinkAnalysis analysis;
    ASSERT_TRUE(analyselink(scene.tables, scene.map, 1, 2, 1, scene.options, link, analysis));
    EXPECT_EQ(study.link.profile.elevations_m, link.profile.elevations_m);
    EXPECT_EQ(study.link.losses, link.losses);
    EXPECT_EQ(study.analysis.linktext, analysis.linktext);
}

TEST(LinkStudy, WithoutAProfileIsNotDoneAndKeepsItsTexts)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    const auto texts = scene.study.analysis.linktext;
    EXPECT_FALSE(studylink(scene.tables, scene.map, 1, 1, 1, scene.options, scene.study));
    EXPECT_FALSE(scene.study.done);
    EXPECT_EQ(scene.study.b, 1);
    EXPECT_EQ(scene.study.analysis.linktext, texts);
    ASSERT_TRUE(scene.run()) << "the next link is studied as ever";
    EXPECT_TRUE(scene.study.done);
}

TEST(LinkStudy, TakesANetBelow0AsNone)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run(-1));
    EXPECT_EQ(scene.study.net, 0);
    EXPECT_EQ(scene.study.analysis.linktext[0], " Impossibilité de montrer les détails");
}
