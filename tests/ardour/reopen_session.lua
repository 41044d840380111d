-- Opens the saved session in a new process, reports the equaliser's values, saves a
-- snapshot (which records the program the equaliser reports) and renders it again.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = reopened_session()
	wait_for_processing()
	report_values("reopened", equaliser)
	assert(session:save_state("reopened", false, false, false, false, false) == 0, "snapshot saved")
	export_to(session, os.getenv("ZT_OUT"), "reopened")
end)
