#include "office/formats/mIsOffice2007SP2orLaterDummy.h"

namespace mergeloom {

// No Office 2007 without the service pack is left to be told apart, so the answer is always yes.
bool isOffice2007SP2orLater() {
    return true;
}

}  // namespace mergeloom
