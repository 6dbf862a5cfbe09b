/** Value classes of the outline: members, their properties and codes, settings, errors. */
package com.olvane.kep.olvane.defs.outline;
