#pragma once

class UIBase;
class UIForm;

// The form with a flow layout that fills the frame of a group. Its clients tell how high the group is.
namespace UIGroupForm
{
// Places the form, lays its clients out in the width of the group, and makes form and group as high as they need.
void fit(UIBase& group, UIForm& form);

// How wide a group must be for a client of that width.
unsigned int getFrameWidth(unsigned int clientWidth);
}
