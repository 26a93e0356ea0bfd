// The database layer in one include: a thin set of client classes of our own
// over the Firebird client library (its ISC interface, <ibase.h>), offering
// what the storage code needs and no more.
#pragma once

#include "storage/ibpp/Blob.h"
#include "storage/ibpp/ClientLibrary.h"
#include "storage/ibpp/Database.h"
#include "storage/ibpp/Exception.h"
#include "storage/ibpp/Statement.h"
#include "storage/ibpp/Transaction.h"
