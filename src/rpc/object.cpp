// ZERDIX as an object: what it holds comes up empty, and goes with it.

#include <cstdlib>

#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/gathered_list.h"
#include "trace/traced.h"

using namespace zerdix;
namespace proc = rpc::proc;

namespace {

constexpr trace::tracer trace_lines{"zerdix"};

} // namespace

ZERDIX::ZERDIX()
    : pouserrec(nullptr), pUserGroups(nullptr), pUserList(nullptr), pUserBlock(nullptr),
      pPrinterList(nullptr), pPrinterBlock(nullptr), pScannerList(nullptr), pGroupsResult(nullptr),
      pUsersResult(nullptr), pUserBlockResult(nullptr), pPrintersResult(nullptr),
      pPrinterBlockResult(nullptr), pFreeScannersResult(nullptr), pAllScannersResult(nullptr),
      pBoardFirst(nullptr), boardRequest{}, pBoardResult(nullptr),
      pSignatureResult(nullptr), signature{}, fUserCopies(false), fPrinterCopies(false) {
    trace_lines.life("C <-- ZERDIX::ZERDIX()");
    rpc::session().pclient = nullptr;
    rpc::session().pauserrec = nullptr;
    trace_lines.life("C --> ZERDIX::ZERDIX()");
}

ZERDIX::~ZERDIX() {
    trace_lines.life("D <-- ZERDIX::~ZERDIX()");
    delete pUserGroups;
    rpc::delete_list<o_user_rec>(pUserList, fUserCopies);
    delete pUserBlock;
    rpc::delete_list<a_printer_rec>(pPrinterList, fPrinterCopies);
    delete pPrinterBlock;
    delete pScannerList;
    rpc::release<proc::a_get_user_1>(rpc::session().pauserrec, &rpc::session());
    rpc::release<proc::o_get_user_1>(pouserrec, this);
    rpc::release<proc::a_get_groups_1>(pGroupsResult, this);
    rpc::release<proc::a_get_users_1>(pUsersResult, this);
    rpc::release<proc::a_get_usersb_1>(pUserBlockResult, this);
    rpc::release<proc::a_get_printers_1>(pPrintersResult, this);
    rpc::release<proc::a_get_printersb_1>(pPrinterBlockResult, this);
    rpc::release<proc::a_get_freescanners_1>(pFreeScannersResult, this);
    rpc::release<proc::a_get_scanners_1>(pAllScannersResult, this);
    rpc::release<proc::a_get_board_1>(pBoardResult, this);
    rpc::release<proc::a_get_sigb_1>(pSignatureResult, this);
    std::free(signature.data);
    trace_lines.life("D --> ZERDIX::~ZERDIX()");
}
