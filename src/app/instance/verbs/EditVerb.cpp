#include "app/instance/verbs/EditVerb.h"

#include "app/instance/verbs/PathCheck.h"
#include "core/Localisation.h"

namespace kestrio {

bool isDensity(double density) {
    return density > 0 && density <= largestDensity;
}

QString faultOf(const EditVerb& verb) {
    if (!verb.file.isEmpty()) {
        if (QString fault = faultOfPath(verb.file); !fault.isEmpty()) return fault;
    }
    if (!isDensity(verb.density)) {
        return Kestrio::tr("the density must be above 0 and at most %1").arg(largestDensity);
    }
    return {};
}

}  // namespace kestrio
