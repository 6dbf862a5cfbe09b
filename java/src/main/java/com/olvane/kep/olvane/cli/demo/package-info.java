/** The guided tour of the outline command, one class per act. */
package com.olvane.kep.olvane.cli.demo;
