/** Value classes for editing calculation scripts. */
package com.olvane.kep.olvane.defs.calcscript;
