// The split of a folder whose templates do not all carry the same columns:
// runs of neighbouring templates that agree on every record (values
// included) each go to a virtual folder of their own, named 0, 1, 2, ... in
// order, so that every table a client sees has one set of columns.
#pragma once

class CFolder;

// True when the folder was split; its own table then has no templates and no
// columns, and each virtual child has its columns built. False leaves the
// templates where they are (the caller builds the columns).
bool PacketTemplatePartition(CFolder* folder);
