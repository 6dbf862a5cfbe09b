/** Sessions on the embedded outline engine that stands in for a database server. */
package com.olvane.kep.olvane.standin;
