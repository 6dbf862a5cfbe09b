/** Value classes that describe outlines and their members. */
package com.olvane.kep.olvane.defs;
