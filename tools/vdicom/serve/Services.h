/// @file Services.h
/// The SOP classes of `vdicom serve`, and its answers to association requests. Knows no connection.
#pragma once

#include "serve/PeersFile.h"
#include "serve/Settings.h"

#include "VDicomAssociatePolicy.h"

#include <string>
#include <string_view>

namespace program {

namespace uid {
constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kCommitment = "1.2.840.10008.1.20.1";
constexpr const char* kCommitmentInstance = "1.2.840.10008.1.20.1.1";
constexpr const char* kWorklist = "1.2.840.10008.5.1.4.31";
} // namespace uid

enum class ServiceKind { none, verification, storage, find, move, get, worklist, commitment };

struct ServedClass {
    ServiceKind kind = ServiceKind::none;
    /// Of query and retrieval: the information model, 1 patient root, 2 study root, 3 patient/study only (retired).
    int model = 0;
};

/// What is offered for an abstract syntax. Storage is offered for every class that may be one: those of the standard's
/// storage branch, those named so, and all that are not the standard's.
ServedClass ClassOf(std::string_view abstractSyntax);

/// Makes the answer to a request, as the settings and the known peers will have it.
/// @return DICOM_OK or DICOM_ERROR_MEMORY
unsigned int AnswerRequest(VDicomAssociate& request, const ServeSettings& settings, const PeersFile& peers,
                           VDicomAssociate& accept, DICOMASSOCIATEANSWER& answer);

} // namespace program
