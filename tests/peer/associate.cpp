// The helper of associate_test.py: reads an A-ASSOCIATE-RQ from the file of its first argument, compares its encoding
// with the bytes that came, writes the answer of a policy to the file of its second argument and tells both on standard
// output. Exit status 1: something differs.
#include "VDicomAssociatePolicy.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string Encoded(const VDicomAssociate& associate) {
    VDicomULong size = 0;
    associate.GetBinary(nullptr, &size);
    std::string bytes(size, '\0');
    associate.GetBinary(bytes.data(), &size);
    return bytes;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    std::ifstream in(arguments[1], std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const auto size = static_cast<VDicomULong>(bytes.size());
    VDicomAssociate request(0);
    const unsigned int code = request.SetBinaryStrict(bytes.data(), &size, nullptr);
    VDicomAssociatePolicy policy;
    policy.AddAbstract(nullptr);
    policy.AddTransfer(nullptr, "1.2.840.10008.1.2");
    policy.AcceptRoles(nullptr, 1, 1);
    VDicomAssociate accept(0);
    DICOMASSOCIATEANSWER answer;
    policy.Answer(request, accept, &answer);
    std::ofstream(arguments[2], std::ios::binary) << Encoded(accept);
    const bool equal = Encoded(request) == bytes;
    int roles = 0;
    for (int i = 0; i < accept.GetPresentationCount(); ++i)
        roles += accept.IsRoleSelect(accept.GetPresentation(i)) != 0 ? 1 : 0;
    std::printf("%s %s contexts %d accepted %d roles %d version %s: %s\n", request.GetCalling(), request.GetCalled(),
                request.GetPresentationCount(), answer.nContext, roles, request.GetImplementVersion(),
                code != DICOM_OK ? GetErrorText(code)
                : equal          ? "equal"
                                 : "differs");
    return code == DICOM_OK && equal ? 0 : 1;
}
