// Placeholder so that the library links; replaced by the direct FIR.
#include "core/body.hpp"
extern "C" {
NoxStatus NOX_BODY(noxsFIRSRGetSize)(int, int, int*, int*) { return noxStsErr; }
NoxStatus NOX_BODY(noxsFIRSRInit_64f)(const Nox64f*, int, int, NoxFirSpec*) { return noxStsErr; }
NoxStatus NOX_BODY(noxsFIRSR_64f)(const Nox64f*, Nox64f*, int, const NoxFirSpec*, const Nox64f*, Nox64f*, Nox8u*) { return noxStsErr; }
NoxStatus NOX_BODY(noxsFIRSRInit_64fc)(const Nox64fc*, int, int, NoxFirSpec*) { return noxStsErr; }
NoxStatus NOX_BODY(noxsFIRSR_64fc)(const Nox64fc*, Nox64fc*, int, const NoxFirSpec*, const Nox64fc*, Nox64fc*, Nox8u*) { return noxStsErr; }
}
