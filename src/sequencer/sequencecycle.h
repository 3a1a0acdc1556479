#pragma once

class ResourceBase;

// Whether playing the resource comes to `target`, through however many keys; null comes to nothing. A sequence that
// came to itself would never end, neither playing nor letting go of itself.
bool leadsTo(const ResourceBase* resource, const ResourceBase& target);
