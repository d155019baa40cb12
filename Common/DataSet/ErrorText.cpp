#include "VDicomTypes.h"

const char* GetErrorText(unsigned int code) {
    switch (code) {
    case DICOM_OK:
        return "Done.";
    case DICOM_ERROR_MEMORY:
        return "Memory could not be allocated.";
    case DICOM_ERROR_OPEN:
        return "The file could not be opened or created.";
    case DICOM_ERROR_READ:
        return "The stream ended, or could not be read, in the middle of an element.";
    case DICOM_ERROR_WRITE:
        return "The stream could not be written.";
    case DICOM_ERROR_STRUCTURE:
        return "Sequences, items, lengths and delimiters do not fit together.";
    case DICOM_ERROR_END:
        return "The stream ended where the next element was expected.";
    case DICOM_ERROR_LENGTH:
        return "A value has an odd length where that cannot be accepted.";
    case DICOM_ERROR_PARAMETER:
        return "An argument is wrong, or arguments do not go together.";
    case DICOM_ERROR_FORMAT:
        return "This is no DICOM data set.";
    case DICOM_BAD_ELEMENT:
        return "The value has an odd length; it was padded.";
    case DICOM_ERROR_DEPTH:
        return "Sequences are nested more deeply than the limit allows.";
    case DICOM_ERROR_SIZE:
        return "A stream or value is larger than this build or the encoding can hold.";
    case DICOM_ERROR_DEFLATE:
        return "The deflated data are damaged, or inflate beyond the limit.";
    case DICOM_ERROR_UNSUPPORTED:
        return "The pixel data would have to be compressed or decompressed, which is not done here.";
    case DICOM_ERROR_ITEM_TYPE:
        return "An association PDU holds an item of unknown type.";
    case DICOM_ERROR_ITEM_LENGTH:
        return "An association PDU is too short, or its lengths do not fit together.";
    case DICOM_ERROR_NO_SYNTAX:
        return "A data set arrived on a presentation context without a transfer syntax.";
    case DICOM_ERROR_PDU_LENGTH:
        return "The peer announced a PDU longer than the limit; the connection cannot be used any more.";
    case DICOM_ERROR_DATA_VALUE:
        return "A presentation data value runs past the end of its PDU; what it belonged to is lost.";
    case DICOM_ERROR_COMMAND_LENGTH:
        return "The peer sent a command set longer than the limit; it was dropped.";
    case DICOM_ERROR_TIMEOUT:
        return "The peer did not answer in time.";
    case DICOM_ERROR_SOCKET:
    case DICOM_ERROR_SOCKET_OTHER:
        return "A network operation failed.";
    case DICOM_ERROR_SOCKET_ACCESS:
        return "The system does not allow this address or port; ports below 1024 need rights.";
    case DICOM_ERROR_SOCKET_ADDRESS_USED:
        return "Another program uses this address and port already.";
    case DICOM_ERROR_SOCKET_ADDRESS:
        return "The address cannot be used here; check it and the port.";
    case DICOM_ERROR_SOCKET_FAMILY:
        return "This kind of address is not supported.";
    case DICOM_ERROR_SOCKET_ABORTED:
        return "The connection was aborted by this machine.";
    case DICOM_ERROR_SOCKET_REFUSED:
        return "The peer refused the connection: nobody listens at this address and port.";
    case DICOM_ERROR_SOCKET_RESET:
        return "The peer broke the connection off.";
    case DICOM_ERROR_SOCKET_DESTINATION:
        return "The address of the peer is missing.";
    case DICOM_ERROR_SOCKET_FAULT:
        return "A bad address in memory was given to the system.";
    case DICOM_ERROR_SOCKET_IN_PROGRESS:
        return "Another operation is still under way on this socket.";
    case DICOM_ERROR_SOCKET_INTERRUPTED:
        return "The operation was interrupted.";
    case DICOM_ERROR_SOCKET_ARGUMENT:
        return "The system refused an argument of a socket operation.";
    case DICOM_ERROR_SOCKET_CONNECTED:
        return "The object is connected or listens already; close it first.";
    case DICOM_ERROR_SOCKET_HANDLES:
        return "There are no more descriptors; raise the limit of open files.";
    case DICOM_ERROR_SOCKET_MESSAGE_SIZE:
        return "The message is too long for the system.";
    case DICOM_ERROR_SOCKET_NETWORK_DOWN:
        return "The network does not work.";
    case DICOM_ERROR_SOCKET_NETWORK_RESET:
        return "The network dropped the connection.";
    case DICOM_ERROR_SOCKET_UNREACHABLE:
        return "There is no way to the host; check its address and the network.";
    case DICOM_ERROR_SOCKET_BUFFERS:
        return "The system has no memory for more network traffic.";
    case DICOM_ERROR_SOCKET_NOT_CONNECTED:
        return "There is no connection.";
    case DICOM_ERROR_SOCKET_NO_SOCKET:
        return "What should be a socket is none.";
    case DICOM_ERROR_SOCKET_OPERATION:
        return "The operation is not supported on this socket.";
    case DICOM_ERROR_SOCKET_PROTOCOL:
        return "The protocol is not supported.";
    case DICOM_ERROR_SOCKET_PROTOCOL_TYPE:
        return "The protocol does not fit the socket.";
    case DICOM_ERROR_SOCKET_SHUT_DOWN:
        return "The connection has been shut down.";
    case DICOM_ERROR_SOCKET_TYPE:
        return "This kind of socket is not supported.";
    case DICOM_ERROR_SOCKET_TIMED_OUT:
        return "The peer's machine does not answer.";
    case DICOM_ERROR_SOCKET_WOULD_BLOCK:
        return "The operation would have to wait.";
    case DICOM_ERROR_SOCKET_HOST:
        return "There is no host of this name.";
    case DICOM_ERROR_SOCKET_HOST_DATA:
        return "The host of this name has no address.";
    case DICOM_ERROR_SOCKET_NAME_SERVICE:
        return "The name service failed.";
    case DICOM_ERROR_SOCKET_NOT_STARTED:
        return "The network was not started, or the socket library is missing.";
    case DICOM_ERROR_SOCKET_SYSTEM:
        return "The network of this system is not ready.";
    case DICOM_ERROR_SOCKET_HOST_LATER:
        return "The name service does not answer now; try again later.";
    case DICOM_ERROR_SOCKET_VERSION:
        return "The socket library has another version than 2.0.";
    case DICOM_ERROR_NO_TLS:
        return "The connection does not use TLS.";
    case DICOM_ERROR_SOCKET_OPTION:
        return "An option of a socket could not be set.";
    case DICOM_ERROR_CONNECT:
        return "The connection could not be started.";
    case DICOM_ERROR_CANCELLED:
        return "It was stopped on the application's wish.";
    case DICOM_INVALID_ELEMENT:
        return "The element is not one of this data set, or has no value.";
    case DICOM_FAULT_TRANSFER_SYNTAX:
        return "The data set is not encoded as its Transfer Syntax UID says.";
    case DICOM_FAULT_NO_TRANSFER_SYNTAX:
        return "The file meta information has no Transfer Syntax UID.";
    case DICOM_FAULT_META:
        return "The file meta information is not formed as it must be.";
    case DICOM_FAULT_ORDER:
        return "An element is out of ascending tag order.";
    case DICOM_FAULT_DOUBLED:
        return "A tag stands twice at one level.";
    case DICOM_FAULT_VR:
        return "A header has an unknown VR, or none where one must be.";
    case DICOM_FAULT_DELIMITER:
        return "A delimiter is missing, or one too many.";
    case DICOM_FAULT_ITEM:
        return "An item stands outside a sequence, or something else inside one.";
    case DICOM_FAULT_LENGTH:
        return "A length runs past the end of the enclosing element.";
    case DICOM_FAULT_TRUNCATED:
        return "A value is cut off by the end of the stream.";
    case DICOM_CHECK_MISSING_1:
        return "A mandatory element is missing.";
    case DICOM_CHECK_EMPTY_1:
        return "A mandatory element has no value.";
    case DICOM_CHECK_MISSING_2:
        return "An element that may be empty but must be there is missing.";
    case DICOM_CHECK_FORBIDDEN:
        return "An element is there although its condition forbids it.";
    case DICOM_CHECK_ENUMERATED:
        return "A value is none of the enumerated values.";
    case DICOM_CHECK_DEFINED_TERM:
        return "A value is none of the defined terms.";
    case DICOM_CHECK_MULTIPLICITY:
        return "There are more or fewer values than the attribute allows.";
    case DICOM_CHECK_VR:
        return "The value representation is not the attribute's.";
    case DICOM_CHECK_CHARACTER:
        return "A value has a character that its value representation does not allow.";
    case DICOM_CHECK_VALUE_LENGTH:
        return "A value is longer than its value representation allows, or cut off.";
    case DICOM_CHECK_FORM:
        return "A value is not formed as its value representation demands.";
    case DICOM_CHECK_UID:
        return "A value is no UID.";
    case DICOM_CHECK_ODD_LENGTH:
        return "A value has an odd number of bytes.";
    case DICOM_CHECK_PADDING:
        return "A value is padded with the wrong character.";
    case DICOM_CHECK_EXTENDED:
        return "No module of the class holds the element.";
    case DICOM_CHECK_PRIVATE_OWNER:
        return "A private element has no creator, or the creator is malformed.";
    case DICOM_CHECK_PRIVATE_BLOCK:
        return "The private creator is in no table.";
    case DICOM_CHECK_NESTING:
        return "An element stands where it does not belong.";
    case DICOM_CHECK_FEW_ITEMS:
        return "A sequence has too few items.";
    case DICOM_CHECK_MANY_ITEMS:
        return "A sequence has too many items.";
    case DICOM_CHECK_CHARACTER_SET:
        return "A text is not in the declared character set.";
    case DICOM_CHECK_UNKNOWN_CHARACTER_SET:
        return "The Specific Character Set is no defined term.";
    case DICOM_CHECK_RETIRED:
        return "The standard has retired the element.";
    case DICOM_CHECK_CLASS:
        return "There is no class to check the modules of.";
    case DICOM_CHECK_META:
        return "The file meta information is incomplete, or contradicts the data set.";
    case DICOM_CHECK_INCONSISTENT:
        return "Elements contradict each other.";
    case DICOM_CHECK_UNREADABLE:
        return "A value cannot be read from its stream.";
    default:
        return "This code is not known.";
    }
}
