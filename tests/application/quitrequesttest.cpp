#include "application/quitrequest.h"

#include "tests/support/toolstage.h"

#include <gtest/gtest.h>

// Whether the program may end behind a frame; runs the next one, in which a question shows.
static bool runFrame(ToolStage& stage, QuitRequest& request)
{
    const bool ended = request.update();
    stage.runFrame();
    return ended;
}

TEST(QuitRequestTest, AsksEachUnsavedToolAfterTheOtherAndEndsWhenAllHaveAnswered)
{
    ToolStage stage;
    stage.addNew(1);
    stage.addNew(2);
    stage.add(new GalleryTool);
    QuitRequest request;
    EXPECT_FALSE(runFrame(stage, request));
    request.start();
    for (unsigned int tool = 0; tool < 2; ++tool)
    {
        for (unsigned int frame = 0; frame < 3; ++frame)
            EXPECT_FALSE(runFrame(stage, request));
        EXPECT_EQ(stage.mSystem->getModalWindowList().size(), 1u);
        stage.answer(UIDialog::No);
    }
    EXPECT_TRUE(runFrame(stage, request));
}

TEST(QuitRequestTest, IsTakenBackByAToolThatIsLeftUnsaved)
{
    ToolStage stage;
    GalleryTool* tool = stage.addNew(1);
    QuitRequest request;
    const auto answer = [&](UIDialog::eReturnValue value)
    {
        stage.answer(value);
        EXPECT_FALSE(runFrame(stage, request));
    };
    request.start();
    EXPECT_FALSE(runFrame(stage, request));
    answer(UIDialog::Yes);
    EXPECT_TRUE(request.isPending()) << "while it is asked for the file";
    answer(UIDialog::Cancel);
    EXPECT_FALSE(request.isPending());
    EXPECT_EQ(stage.getDialog(), nullptr);

    // A dialog that was open before is not followed by a question.
    tool->saveAs();
    request.start();
    EXPECT_FALSE(runFrame(stage, request));
    answer(UIDialog::Cancel);
    EXPECT_FALSE(request.isPending());

    request.start();
    EXPECT_FALSE(runFrame(stage, request)) << "the next press on the close box asks again";
    EXPECT_EQ(stage.getDialogTitle(), "Causion");
}
