#include "storage/CDataProvider.h"

#include <utility>

CDataProvider::CDataProvider(std::wstring server, std::wstring database, std::wstring user, std::wstring password)
    : server_(std::move(server)),
      database_(std::move(database)),
      user_(std::move(user)),
      password_(std::move(password)) {}

CDataProvider::~CDataProvider() = default;
