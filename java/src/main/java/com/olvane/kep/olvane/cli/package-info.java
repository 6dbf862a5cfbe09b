/** The outline command. */
package com.olvane.kep.olvane.cli;
