// What the objects below this folder show of themselves. They declare it and leave it to this file, so that none of
// them knows a widget.

#include "foundation/jobsystem.h"
#include "foundation/utils.h"
#include "input/keyboardsystem.h"
#include "input/mousesystem.h"
#include "reflection/objectproperty.h"
#include "render/rendersystem.h"
#include "render/texture.h"
#include "sequencer/control.h"
#include "tool/toolsystem.h"
#include "ui/uicomponentcontrol.h"
#include "ui/uicontrolarray.h"
#include "ui/uiparametercontrol.h"
#include "ui/uitexturecontrol.h"

namespace
{
constexpr bool ReadOnly = true;
constexpr unsigned int WholeValue = UIControl::WholeValue;

template <typename Control, typename T>
void addReadOnly(List<UIBase>& list, const char* name, T& value)
{
    list.addLast(new Control(new ReferenceProperty<T>(name, &value), ReadOnly, WholeValue));
}
}

void ObjectBase::makeUIList(List<UIBase>& list)
{
    List<ControlBase> controls;
    makeControlList(controls);
    for (ControlBase* control : controls)
    {
        if (UIBase* element = Utils::makeUIFromControl(control))
            list.addLast(element);
        delete control;
    }
}

void JobSystem::makeUIList(List<UIBase>& list)
{
    constexpr unsigned int MinimumThreadNum = 1;
    auto* threadNum = new IndirectProperty<unsigned int>("JobThreadNum", this, &JobSystem::getJobThreadNum,
                                                         &JobSystem::setJobThreadNum);
    list.addLast(new UIParameterControl(threadNum, MinimumThreadNum, MaximumThreadNum, false, WholeValue));
}

void RenderSystem::makeUIList(List<UIBase>& list)
{
    addReadOnly<UIParameterControl>(list, "DrawCommandNum", mDrawCommandNum);
}

void MouseSystem::makeUIList(List<UIBase>& list)
{
    addReadOnly<UIPointControl>(list, "Position", mPosition);
    addReadOnly<UIParameterControl>(list, "ButtonOn", mButtonOn);
    addReadOnly<UIParameterControl>(list, "ButtonTrgOn", mButtonTrgOn);
    addReadOnly<UIPointControl>(list, "WheelAmount", mWheelCurrent);
}

void KeyboardSystem::makeUIList(List<UIBase>& list)
{
    const auto addKeys = [&list](const char* name, KeySet& keys)
    {
        list.addLast(
            new UIControlArray(new ReferenceProperty<unsigned int>(name, keys.getWords(), KeySet::WordNum), ReadOnly));
    };
    addKeys("KeyOn", mKeyOn);
    addKeys("KeyTrgOn", mKeyTrgOn);
    addKeys("KeyTrgOff", mKeyTrgOff);
}

void ToolSystem::makeUIList(List<UIBase>& list)
{
    list.addLast(new UITextureControl(new ObjectProperty("FontTexture", mpFontTexture), WholeValue));
}
