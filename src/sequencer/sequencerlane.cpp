#include "sequencer/sequencerlane.h"

#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "sequencer/framesearch.h"
#include "sequencer/keytable.h"
#include "sequencer/sequencerkey.h"

REFLECT(SequencerLane, eTypeAttribute::None, "ObjectBase");

SequencerLane::SequencerLane()
{
    mKeyList.setContentStability(false);
}

void SequencerLane::setControl(const ControlBase& control)
{
    mControlType = static_cast<unsigned int>(control.getType());
    mControlName = control.getName();
    mKeyType = KeyTable::getType(control);
    setupKeys();
}

void SequencerLane::setupKeys()
{
    const sKeyRow* row = KeyTable::find(mKeyType);
    mKeyStride = row ? row->stride : 0;
    mKeyTypeID = row ? row->getTypeInfo()->getID() : 0;
    mKeyInterpolateNum = row ? row->componentNum : 0;
}

SequencerKey* SequencerLane::findKey(unsigned int frame) const
{
    return findAtFrame<SequencerKey>(mKeyList, frame);
}

SequencerKey* SequencerLane::findKeyBlock(unsigned int frame) const
{
    return findUpToFrame<SequencerKey>(mKeyList, frame);
}

void SequencerLane::makePropertyList(PropertyList& list)
{
    list.addReference("control_type", mControlType);
    list.addReference("control_name", mControlName);
    list.addReference("key_type", mKeyType);
    list.addReference("key_stride", mKeyStride);
    list.addReference("key_typeid", mKeyTypeID);
    list.addReference("key_interpolate_num", mKeyInterpolateNum);
    list.add(new ObjectProperty("key_list", &mKeyList));
}
