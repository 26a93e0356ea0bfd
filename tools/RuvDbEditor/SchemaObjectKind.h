// The kinds of named object that a catalog's schema is made of, as the
// schema update compares them between the script and a database.
#pragma once

enum class SchemaObjectKind { kGenerator, kException, kTable, kIndex, kConstraint, kTrigger, kProcedure };
