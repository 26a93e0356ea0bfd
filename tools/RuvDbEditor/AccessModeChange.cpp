#include "AccessModeChange.h"

#include <stdexcept>

#include "DatabaseStructure.h"
#include "ServiceManager.h"
#include "ServiceRequest.h"
#include "storage/ibpp/StatusVector.h"

void AccessModeChange::Run(const std::string& databasePath, bool readOnly) {
  {
    ServiceManager services;
    services.Run(ServiceRequest(isc_action_svc_properties)
                     .Text(isc_spb_dbname, databasePath)
                     .Byte(isc_spb_prp_access_mode, readOnly ? isc_spb_prp_am_readonly : isc_spb_prp_am_readwrite));
  }
  // The service manager is the authority, but a success is only claimed
  // for what the database itself now says.
  if (DatabaseStructure::Read(databasePath).ReadOnly() != readOnly) {
    throw std::runtime_error("the database did not take the new access mode: " + databasePath);
  }
}
