#include "ui/uigroupform.h"

#include "ui/uiaxis.h"
#include "ui/uiform.h"

namespace
{
constexpr sPoint Place{8, 16};
constexpr int WidthMargin = 16;
constexpr int HeightMargin = 24;

// The flow breaks a row in which less than this is left behind its last element.
constexpr unsigned int FlowGap = 2;

void setFormSize(UIForm& form, const sSize& size)
{
    form.setSize(size);
    form.setClientRegion(form.getOwnRegion());
}
}

// The form keeps its width: in one just as wide as its clients the next layout would break the rows anew.
void UIGroupForm::fit(UIBase& group, UIForm& form)
{
    const sSize size = group.getSize();
    form.setPosition(Place);
    setFormSize(form,
                makeSize(static_cast<int>(size.width) - WidthMargin, static_cast<int>(size.height) - HeightMargin));
    form.update(0.0f);
    const unsigned int height = form.getClientExistRegion().getHeight();
    setFormSize(form, {form.getSize().width, height});
    group.setSize({size.width, height + HeightMargin});
}

unsigned int UIGroupForm::getFrameWidth(unsigned int clientWidth)
{
    return clientWidth + FlowGap + WidthMargin;
}
